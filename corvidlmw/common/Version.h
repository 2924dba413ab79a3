/* Which libcorvidlmw a program runs with: a line with the library's name, its version and when it was
 * built.
 *
 * A program that has imsg_print and imsg_sprintf, its own output for messages, gets the line through
 * them.
 */
#ifndef CORVIDLMW_COMMON_VERSION_H
#define CORVIDLMW_COMMON_VERSION_H

#include <corvidlmw/toolkit/Export.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Prints the line to the program's output for messages, otherwise to standard output. */
CORVIDLMW_EXPORT void libcorvidlmw_print_verid(void);

/* Writes the line, ended by a newline and a NUL, into `buffer`, which must have room: 200 characters
 * are enough. NULL is left alone. */
CORVIDLMW_EXPORT void libcorvidlmw_sprintf_verid(char *buffer);

#ifdef __cplusplus
}
#endif

#endif
