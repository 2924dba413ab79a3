/* What the shared library exports, and nothing else. */
#ifndef CORVIDLMW_TOOLKIT_EXPORT_H
#define CORVIDLMW_TOOLKIT_EXPORT_H

#if defined(__GNUC__)
#define CORVIDLMW_EXPORT __attribute__((visibility("default")))
#else
#define CORVIDLMW_EXPORT
#endif

#endif
