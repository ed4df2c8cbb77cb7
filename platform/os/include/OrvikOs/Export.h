#ifndef ORVIKOS_EXPORT_H
#define ORVIKOS_EXPORT_H

/// ORVIK_EXPORT marks what a library offers, ORVIK_IMPORT what it takes from another library. Every
/// library builds its own macro (ORVIKOS_API, ORVIKCORE_API, ...) on these two; this is the only
/// place that asks for the system.
#if defined(_WIN32)
#define ORVIK_EXPORT __declspec(dllexport)
#define ORVIK_IMPORT __declspec(dllimport)
#else
#define ORVIK_EXPORT __attribute__((visibility("default")))
#define ORVIK_IMPORT __attribute__((visibility("default")))
#endif

/// Entry points of plugins: always exported by the library that defines them.
#define ORVIK_PLUGIN_API ORVIK_EXPORT

#if defined(ORVIKOS_EXPORTS)
#define ORVIKOS_API ORVIK_EXPORT
#else
#define ORVIKOS_API ORVIK_IMPORT
#endif

#endif
