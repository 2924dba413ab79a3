#include "Application.h"

#include <Locale.h>

namespace graph_browser {
namespace {

char *fallback_resources[] = {
    const_cast<char *>("*mainWindow.width: 1000"),
    const_cast<char *>("*mainWindow.height: 700"),
    const_cast<char *>("*background: #dcdad5"),
    const_cast<char *>("*graph.background: #f6f5f2"),
    const_cast<char *>("*ClipWindow.background: #f6f5f2"),
    const_cast<char *>("*graph.foreground: black"),
    const_cast<char *>("*graph.arcDrawMode: position_fixed"),
    const_cast<char *>("*graph.XmPushButtonGadget.background: #e3e9f2"),
    const_cast<char *>("*graph.XmPushButtonGadget.highlightThickness: 2"),
    const_cast<char *>("*graph.XmPushButtonGadget.highlightColor: #d4500c"),
    const_cast<char *>("*graph.highlightColor: #d4500c"),
    const_cast<char *>("*graph.XmPushButtonGadget.shadowThickness: 1"),
    const_cast<char *>("*graph.XmPushButtonGadget.marginWidth: 4"),
    const_cast<char *>("*graph.XmPushButtonGadget.marginHeight: 2"),
    const_cast<char *>("*graph.XmvIconGadget.background: #e3e9f2"),
    const_cast<char *>("*graph.XmvIconGadget.topShadowColor: #a9bad4"),
    const_cast<char *>("*graph.XmvIconGadget.bottomShadowColor: #5f7595"),
    const_cast<char *>("*graph.XmvIconGadget.shadowType: shadow_out"),
    const_cast<char *>("*graph.XmvIconGadget.shadowThickness: 1"),
    const_cast<char *>("*graph.XmvIconGadget.highlightThickness: 2"),
    const_cast<char *>("*graph.XmvIconGadget.marginHeight: 2"),
    const_cast<char *>("*graph*arc.foreground: #404040"),
    const_cast<char *>("*XmScrollBar.highlightThickness: 1"),
    const_cast<char *>("*graph.overviewNodeColor: #7f95b5"),
    const_cast<char *>("*graph.overviewLineColor: #b8b4ac"),
    const_cast<char *>("*overview.background: #f6f5f2"),
    const_cast<char *>("*overview.topShadowColor: #2f5f9f"),
    const_cast<char *>("*overview.bottomShadowColor: #2f5f9f"),
    const_cast<char *>("*overview.width: 200"),
    const_cast<char *>("*overviewFrame.shadowType: shadow_in"),
    const_cast<char *>("*searchLine.marginWidth: 4"),
    const_cast<char *>("*searchLine.marginHeight: 2"),
    const_cast<char *>("*searchLine.horizontalSpacing: 4"),
    const_cast<char *>("*find.columns: 30"),
    const_cast<char *>("*find.highlightThickness: 1"),
    const_cast<char *>("*find.shadowThickness: 1"),
    const_cast<char *>("*find.background: #f6f5f2"),
    const_cast<char *>("*status.marginWidth: 6"),
    const_cast<char *>("*indicatorSize: 12"),
    const_cast<char *>("*buttonRenderTable: text"),
    const_cast<char *>("*labelRenderTable: text"),
    const_cast<char *>("*textRenderTable: text"),
    const_cast<char *>("*text.fontType: FONT_IS_XFT"),
    const_cast<char *>("*text.fontName: DejaVu Sans"),
    const_cast<char *>("*text.fontSize: 9"),
    nullptr,
};

} // namespace

Widget OpenApplication(XtAppContext &app, XrmOptionDescList options, Cardinal option_count,
                       int &argc, char **argv) {
    XtSetLanguageProc(nullptr, example::SetLocale, nullptr);
    return XtOpenApplication(&app, const_cast<char *>("GraphBrowser"), options, option_count, &argc,
                             argv, fallback_resources, applicationShellWidgetClass, nullptr, 0);
}

} // namespace graph_browser
