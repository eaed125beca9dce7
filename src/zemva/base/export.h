// How a name leaves the library.
//
// A class or function marked ZEMVA_API is part of the exported interface; all else stays inside.
// Who uses the static library on Windows defines ZEMVA_STATIC.
#ifndef ZEMVA_BASE_EXPORT_H
#define ZEMVA_BASE_EXPORT_H

#if defined(_WIN32) && defined(ZEMVA_STATIC) && !defined(ZEMVA_BUILDING)
#define ZEMVA_API
#elif defined(_WIN32)
#if defined(ZEMVA_BUILDING)
#define ZEMVA_API __declspec(dllexport)
#else
#define ZEMVA_API __declspec(dllimport)
#endif
#else
#define ZEMVA_API __attribute__((visibility("default")))
#endif

#endif  // ZEMVA_BASE_EXPORT_H
