/* The display harness. A display test derives from DisplayTest and reads act, pump, expect:
 *
 *     using namespace corvidlmw::test;
 *     class ButtonTest : public DisplayTest {};
 *
 *     TEST_F(ButtonTest, IsActivatedByAClick) {
 *         Widget button = XmCreatePushButton(shell, Name("ok"), nullptr, 0);
 *         XtManageChild(button);
 *         CallbackLog<> log;
 *         log.Add(button, XmNactivateCallback);
 *         Show();
 *
 *         Click(button, 5, 5);
 *         EXPECT_EQ(log.reasons(), (std::vector<int>{XmCR_ACTIVATE}));
 *     }
 *
 * A test fails by itself if it leaves a toolkit warning or an X error that it did not expect. */

#ifndef CORVIDLMW_TESTS_SUPPORT_HARNESS_H
#define CORVIDLMW_TESTS_SUPPORT_HARNESS_H

#include <tests/support/CallbackLog.h>
#include <tests/support/Complaints.h>
#include <tests/support/DisplayTest.h>
#include <tests/support/Editres.h>
#include <tests/support/Input.h>
#include <tests/support/Picture.h>
#include <tests/support/Random.h>
#include <tests/support/Recorder.h>
#include <tests/support/SlowProxy.h>
#include <tests/support/Traffic.h>
#include <tests/support/XServer.h>

#endif
