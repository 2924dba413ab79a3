/* Makes the library's classes known to the Motif Resource Manager, so that an interface written in
 * UIL may hold them.
 *
 * It is in a library of its own, libcorvidlmw_mrm, since it alone needs libMrm: link with what
 * pkg-config says of corvidlmw_mrm, or with the CMake target corvidlmw::corvidlmw_mrm.
 *
 * In a UIL module, Corvidlmw.uil beside this header declares the creation functions, the resources
 * and their constants:
 *
 *     module example names = case_sensitive
 *     include file 'corvidlmw/uil/Corvidlmw.uil';
 *     object tasks : user_defined procedure XmCreateScrolledGraph {
 *         arguments { XmNarcDrawMode = XmPOSITION_RELATIVE; };
 *         controls  { XmPushButtonGadget plan; XmPushButtonGadget build; };
 *     };
 */
#ifndef CORVIDLMW_UIL_MRM_H
#define CORVIDLMW_UIL_MRM_H

#include <corvidlmw/toolkit/Export.h>

#include <X11/Intrinsic.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Registers every creation function of the library that UIL can call: those that take a parent, a
 * name and arguments. To be called once after MrmInitialize, which it does not call, and before the
 * first widget is fetched; later calls register nothing anew. Returns MrmSUCCESS, or MrmFAILURE if
 * the resource manager refused a function; then a further call tries again. It belongs to the
 * toolkit's thread. */
CORVIDLMW_EXPORT Cardinal CorvidlmwMrmRegisterClasses(void);

#ifdef __cplusplus
}
#endif

#endif
