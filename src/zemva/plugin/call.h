/* The calling convention of the plug-in's functions: the caller clears the stack, so that a host
 * may pass arguments that are not read. */
#ifndef ZEMVA_PLUGIN_CALL_H
#define ZEMVA_PLUGIN_CALL_H

#if defined(_WIN32) && !defined(_WIN64)
#define ZEMVA_CALL __cdecl
#else
#define ZEMVA_CALL
#endif

#endif /* ZEMVA_PLUGIN_CALL_H */
