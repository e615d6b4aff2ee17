#pragma once

#include <QtGlobal>

/// Marks what `libsurfaceio-inhouse.so` offers. An application that links its real libraries
/// instead brings its own headers and never sees this one.
#if defined(SURFACEIO_INHOUSE_REPLACED)
#error "a stand-in of src/inhouse was included, though SURFACEIO_INHOUSE_TARGET names another library"
#elif defined(SURFACEIO_INHOUSE_LIBRARY)
#define SURFACEIO_INHOUSE_EXPORT Q_DECL_EXPORT
#else
#define SURFACEIO_INHOUSE_EXPORT Q_DECL_IMPORT
#endif
