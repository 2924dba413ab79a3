#pragma once

#include <string>

#include <Xm/Xm.h>

#include "Form.h"

// From the design to widgets.
namespace form_designer {

// Created, not managed. `more` are further resources, such as where the pointer is.
Widget CreateWidget(Widget parent, const Form &form, const Item &item, ArgList more = nullptr,
                    Cardinal more_count = 0);
Widget CreateGrid(Widget parent, const Form &form);

// In its parent.
XRectangle PlaceOf(Widget widget);

void SetResource(Widget widget, const Property &property, const std::string &value);

} // namespace form_designer
