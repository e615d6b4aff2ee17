#pragma once

#include <QtGlobal>

#if defined(OTHER_INHOUSE_LIBRARY)
#define OTHER_INHOUSE_EXPORT Q_DECL_EXPORT
#else
#define OTHER_INHOUSE_EXPORT Q_DECL_IMPORT
#endif
