#include "Icons.h"

#include <string.h>

#include <corvidlmw/gadget/IconG.h>

/* A box and a disc, 11 by 11 pixels, eight to the byte. */
enum { SIZE = 11 };

static const unsigned char box[] = {0xff, 0x07, 0x01, 0x04, 0x01, 0x04, 0x01, 0x04,
                                    0x01, 0x04, 0x01, 0x04, 0x01, 0x04, 0x01, 0x04,
                                    0x01, 0x04, 0x01, 0x04, 0xff, 0x07};
static const unsigned char disc[] = {0x70, 0x00, 0xfc, 0x01, 0xfe, 0x03, 0xfe, 0x03,
                                     0xff, 0x07, 0xff, 0x07, 0xff, 0x07, 0xfe, 0x03,
                                     0xfe, 0x03, 0xfc, 0x01, 0x70, 0x00};

static Pixmap MakePicture(Widget w, const unsigned char *bits) {
    return XCreateBitmapFromData(XtDisplayOfObject(w), RootWindowOfScreen(XtScreenOfObject(w)),
                                 (const char *)bits, SIZE, SIZE);
}

/* One for all nodes of a shape; a gadget does not copy its picture, so they live as long as the program. */
static Pixmap PictureOf(Widget w, const char *shape) {
    static Pixmap box_picture, disc_picture;

    if (!box_picture) {
        box_picture = MakePicture(w, box);
        disc_picture = MakePicture(w, disc);
    }
    return strcmp(shape, "box") == 0 ? box_picture : disc_picture;
}

void DressIcon(Widget widget, Agnode_t *node) {
    const Pixmap picture = PictureOf(widget, agget(node, "shape"));

    XtVaSetValues(widget, XmNlabelPixmap, picture, XmNlabelBitmap, picture, XmNiconPlacement,
                  XmICON_LEFT, XmNshowArrow, agfstout(agraphof(node), node) != NULL, NULL);
    DressNode(widget, node);
}
