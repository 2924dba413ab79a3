/* uil-planner [UID_FILE]: the tasks of a small project, in a window that planner.uil describes. */
#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/uil/Mrm.h>

#include <Mrm/MrmPublic.h>
#include <X11/Xatom.h>
#include <Xm/Xm.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* Where the window is looked for if the program is not told. */
#ifndef PLANNER_UID
#define PLANNER_UID "planner.uid"
#endif

enum { MAX_TASKS = 64 };

/* A task is known by its name: the list's row, the graph's node. */
static Widget list, graph, form;
static int done[MAX_TASKS]; /* in per cent, in the order of the list's rows */
static int selected = 1;    /* the list's position */

/* ---- The form ------------------------------------------------------------------------------------- */

static void SetLabel(const char *name, const char *text) {
    XmString label = XmStringCreateLocalized((char *)text);
    XtVaSetValues(XtNameToWidget(form, name), XmNlabelString, label, NULL);
    XmStringFree(label);
}

static void ShowDone(void) {
    char text[16];
    snprintf(text, sizeof text, "Done: %d %%", done[selected - 1]);
    SetLabel("done_label", text);
}

/* The tasks whose arcs lead to this one. */
static void ShowWhatItWaitsFor(Widget node) {
    char text[256] = "";
    WidgetList from, to;
    int num_from, num_to, i;
    XmGraphGetNodeArcs(graph, node, &from, &to, &num_from, &num_to);
    for (i = 0; i < num_to; ++i) {
        Widget before, after;
        size_t length = strlen(text);
        XmGraphGetArcNodes(graph, to[i], &before, &after);
        snprintf(text + length, sizeof text - length, "%s%s", i > 0 ? ", " : "", XtName(before));
    }
    SetLabel("waits", num_to > 0 ? text : "nothing");
}

/* ---- Selecting ------------------------------------------------------------------------------------ */

static int NumTasks(void) {
    int count;
    XtVaGetValues(list, XmNitemCount, &count, NULL);
    return count < MAX_TASKS ? count : MAX_TASKS;
}

/* The caller frees it with XtFree. */
static char *TaskName(int position) {
    XmStringTable items;
    XtVaGetValues(list, XmNitems, &items, NULL);
    return XmStringUnparse(items[position - 1], NULL, XmCHARSET_TEXT, XmCHARSET_TEXT, NULL, 0,
                           XmOUTPUT_ALL);
}

/* 0 if there is no such task. LmListItemPos would compare strings with their character sets, and those of
 * the UIL file name one. */
static int TaskPosition(const char *name) {
    int position;
    for (position = NumTasks(); position > 0; --position) {
        char *row = TaskName(position);
        int found = strcmp(row, name) == 0;
        XtFree(row);
        if (found)
            break;
    }
    return position;
}

static void SelectNode(Widget node) {
    int count;
    WidgetList selected_nodes = XmGraphGetSelectedNodes(graph, &count);
    XmGraphUnselectNodes(graph, selected_nodes, count, False);
    XmGraphSelectNode(graph, node, False);
    XmGraphMakeWidgetVisible(graph, node);
}

/* Shows a task everywhere. Nothing of it calls back, so list and graph may both ask for it. */
static void Select(int position) {
    char *name = TaskName(position);
    Widget node = XtNameToWidget(graph, name);
    selected = position;
    LmListSelectPos(list, position, False);
    SelectNode(node);
    SetLabel("task", name);
    ShowWhatItWaitsFor(node);
    ShowDone();
    XtVaSetValues(XtNameToWidget(form, "done"), XmNvalue, done[position - 1], NULL);
    XtFree(name);
}

/* ---- Callbacks, by the names that planner.uil gives them ------------------------------------------ */

static void ListCreated(Widget w, XtPointer client_data, XtPointer call_data) {
    (void)client_data, (void)call_data;
    list = w;
}

static void GraphCreated(Widget w, XtPointer client_data, XtPointer call_data) {
    (void)client_data, (void)call_data;
    graph = w;
}

static void FormCreated(Widget w, XtPointer client_data, XtPointer call_data) {
    (void)client_data, (void)call_data;
    form = w;
}

static void TaskChosen(Widget w, XtPointer client_data, XtPointer call_data) {
    (void)w, (void)client_data;
    Select(((LmListCallbackStruct *)call_data)->item_position);
}

static void NodeChosen(Widget w, XtPointer client_data, XtPointer call_data) {
    int position = TaskPosition(XtName(w));
    (void)client_data, (void)call_data;
    if (position > 0)
        Select(position);
}

static void DoneChanged(Widget w, XtPointer client_data, XtPointer call_data) {
    (void)client_data, (void)call_data;
    XtVaGetValues(w, XmNvalue, &done[selected - 1], NULL);
    ShowDone();
}

/* The step is a number in the UIL file, so the callback gets its address. */
static void StepTask(Widget w, XtPointer client_data, XtPointer call_data) {
    int position = selected + *(int *)client_data;
    (void)w, (void)call_data;
    if (position >= 1 && position <= NumTasks())
        Select(position);
}

static void Quit(Widget w, XtPointer client_data, XtPointer call_data) {
    (void)client_data, (void)call_data;
    XtAppSetExitFlag(XtWidgetToApplicationContext(w));
}

/* The resource manager takes a function for the address of an object; a union says so in standard C. */
static int RegisterProcedures(void) {
    static const struct {
        char *name;
        XtCallbackProc procedure;
    } procedures[] = {
        {"ListCreated", ListCreated}, {"GraphCreated", GraphCreated},
        {"FormCreated", FormCreated}, {"TaskChosen", TaskChosen},
        {"NodeChosen", NodeChosen},   {"DoneChanged", DoneChanged},
        {"StepTask", StepTask},       {"Quit", Quit},
    };
    MrmRegisterArg names[XtNumber(procedures)];
    size_t i;
    for (i = 0; i < XtNumber(procedures); ++i) {
        union {
            XtCallbackProc procedure;
            XtPointer address;
        } value;
        value.procedure = procedures[i].procedure;
        names[i].name = procedures[i].name;
        names[i].value = value.address;
    }
    return MrmRegisterNames(names, XtNumber(names)) == MrmSUCCESS;
}

/* ---- Program -------------------------------------------------------------------------------------- */

static char *fallback_resources[] = {
#include <UilPlannerResources.inc>
    NULL,
};

/* A script that takes a picture waits for this property. */
static Boolean TellWhenShown(XtPointer shell) {
    Display *display = XtDisplay(shell);
    const unsigned char shown = 1;
    XSync(display, False);
    if (XPending(display) > 0)
        return False;
    XChangeProperty(display, XtWindow(shell), XInternAtom(display, "UIL_PLANNER_SHOWN", False),
                    XA_CARDINAL, 8, PropModeReplace, &shown, 1);
    XFlush(display);
    return True;
}

static void Exposed(Widget w, XtPointer shell, XEvent *event, Boolean *go_on) {
    (void)event, (void)go_on;
    XtRemoveEventHandler(w, ExposureMask, False, Exposed, shell);
    XtAppAddWorkProc(XtWidgetToApplicationContext(w), TellWhenShown, shell);
}

/* Whether the window of the file is below `shell`. */
static int FetchWindow(Widget shell, char *file) {
    MrmHierarchy hierarchy;
    MrmType class;
    Widget window = NULL;
    int fetched;
    if (MrmOpenHierarchyPerDisplay(XtDisplay(shell), 1, &file, NULL, &hierarchy) != MrmSUCCESS)
        return 0;
    fetched = MrmFetchWidget(hierarchy, "planner_window", shell, &window, &class) == MrmSUCCESS;
    MrmCloseHierarchy(hierarchy);
    if (fetched)
        XtManageChild(window);
    return fetched && list && graph && form;
}

int main(int argc, char **argv) {
    XtAppContext app;
    Widget shell;
    char *file;

    XtSetLanguageProc(NULL, NULL, NULL);
    MrmInitialize();
    shell = XtVaOpenApplication(&app, "UilPlanner", NULL, 0, &argc, argv, fallback_resources,
                                applicationShellWidgetClass, XmNtitle, "uil-planner: tasks", NULL);
    file = argc > 1 ? argv[1] : PLANNER_UID;
    if (CorvidlmwMrmRegisterClasses() != MrmSUCCESS || !RegisterProcedures() ||
        !FetchWindow(shell, file)) {
        fprintf(stderr, "uil-planner: %s: no window in it\n", file);
        return EXIT_FAILURE;
    }
    XtAddEventHandler(graph, ExposureMask, False, Exposed, shell);
    XtRealizeWidget(shell);
    Select(1);
    XtAppMainLoop(app);
    XtDestroyApplicationContext(app);
    return EXIT_SUCCESS;
}
