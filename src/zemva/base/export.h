// How a name leaves the library.
//
// A class or function marked ZEMVA_API is part of the exported interface; all else stays inside.
#ifndef ZEMVA_BASE_EXPORT_H
#define ZEMVA_BASE_EXPORT_H

#if defined(_WIN32)
#if defined(ZEMVA_BUILDING)
#define ZEMVA_API __declspec(dllexport)
#else
#define ZEMVA_API __declspec(dllimport)
#endif
#else
#define ZEMVA_API __attribute__((visibility("default")))
#endif

#endif  // ZEMVA_BASE_EXPORT_H
