#pragma once

#include <QtGlobal>

/// Marks what `libsurfaceio.so` offers; everything else stays inside it.
#if defined(SURFACEIO_STATIC)
#define SURFACEIO_EXPORT
#elif defined(SURFACEIO_LIBRARY)
#define SURFACEIO_EXPORT Q_DECL_EXPORT
#else
#define SURFACEIO_EXPORT Q_DECL_IMPORT
#endif
