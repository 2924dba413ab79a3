#include "Application.h"

#include <Xm/Xm.h>

#include <Locale.h>

namespace workbench {

namespace {

char *fallback_resources[] = {
    const_cast<char *>("*mainWindow.width: 1400"),
    const_cast<char *>("*mainWindow.height: 860"),
    const_cast<char *>("*background: #dcdad5"),
    const_cast<char *>("*graph.background: #f6f5f2"),
    const_cast<char *>("*ClipWindow.background: #f6f5f2"),
    const_cast<char *>("*graph.foreground: black"),
    const_cast<char *>("*graph.arcDrawMode: position_fixed"),
    const_cast<char *>("*graph.highlightColor: #d4500c"),
    const_cast<char *>("*graph.XmvIconGadget.iconPlacement: icon_left"),
    const_cast<char *>("*graph.XmvIconGadget.highlightThickness: 2"),
    const_cast<char *>("*graph.XmvIconGadget.highlightColor: #d4500c"),
    const_cast<char *>("*graph.XmvIconGadget.shadowThickness: 1"),
    const_cast<char *>("*graph.XmvIconGadget.shadowType: shadow_out"),
    const_cast<char *>("*graph.XmvIconGadget.marginWidth: 3"),
    const_cast<char *>("*graph.XmvIconGadget.marginHeight: 1"),
    const_cast<char *>("*graph.XmvIconGadget.traversalOn: False"),
    const_cast<char *>("*graph*arc.foreground: #606060"),
    const_cast<char *>("*graph.overviewNodeColor: #7f95b5"),
    const_cast<char *>("*graph.overviewLineColor: #c8c4bc"),
    const_cast<char *>("*graph.skewOverviewScale: true"),
    const_cast<char *>("*overview.background: #f6f5f2"),
    const_cast<char *>("*overview.topShadowColor: #2f5f9f"),
    const_cast<char *>("*overview.bottomShadowColor: #2f5f9f"),
    const_cast<char *>("*overview.width: 260"),
    const_cast<char *>("*overview.height: 320"),
    const_cast<char *>("*overviewFrame.shadowType: shadow_in"),
    const_cast<char *>("*nodes.background: #fbfaf7"),
    const_cast<char *>("*nodesSW.VScrollBar.width: 20"),
    const_cast<char *>("*header.marginLeft: 26"),
    const_cast<char *>("*findLine.marginWidth: 4"),
    const_cast<char *>("*findLine.marginHeight: 3"),
    const_cast<char *>("*findLine.horizontalSpacing: 4"),
    const_cast<char *>("*XmTextField.highlightThickness: 1"),
    const_cast<char *>("*XmTextField.shadowThickness: 1"),
    const_cast<char *>("*XmTextField.background: #fbfaf7"),
    const_cast<char *>("*properties.marginWidth: 4"),
    const_cast<char *>("*properties.property.foreground: #505050"),
    const_cast<char *>("*status.marginWidth: 6"),
    const_cast<char *>("*progress.scaleWidth: 150"),
    const_cast<char *>("*progress.scaleHeight: 12"),
    const_cast<char *>("*progress.highlightThickness: 0"),
    const_cast<char *>("*XmScrollBar.highlightThickness: 1"),
    const_cast<char *>("*indicatorSize: 12"),
    const_cast<char *>("*renderTable: text"),
    const_cast<char *>("*buttonRenderTable: text"),
    const_cast<char *>("*labelRenderTable: text"),
    const_cast<char *>("*textRenderTable: text"),
    const_cast<char *>("*text.fontType: FONT_IS_XFT"),
    const_cast<char *>("*text.fontName: DejaVu Sans"),
    const_cast<char *>("*text.fontSize: 9"),
    nullptr,
};

} // namespace

Widget OpenWorkbench(XtAppContext &app, XrmOptionDescList options, Cardinal option_count, int &argc,
                     char **argv) {
    XtSetLanguageProc(nullptr, example::SetLocale, nullptr);
    return XtOpenApplication(&app, const_cast<char *>("Workbench"), options, option_count, &argc,
                             argv, fallback_resources, applicationShellWidgetClass, nullptr, 0);
}

} // namespace workbench
