#pragma once

#include "inhouse/Export.h"

#include <QMap>
#include <QString>
#include <QVariant>

#include <mutex>

/// The application's parameters by name, one store for the whole process. Any thread, any time.
class SURFACEIO_INHOUSE_EXPORT ApplicationParametersManagerImpl
{
public:
    ApplicationParametersManagerImpl(ApplicationParametersManagerImpl const&) = delete;
    ApplicationParametersManagerImpl& operator=(ApplicationParametersManagerImpl const&) = delete;

    /// The one store, made at the first call; it lives as long as the process.
    static ApplicationParametersManagerImpl& instance();

    /// An invalid value for a key that was never set.
    QVariant getApplicationParameter(QString const& key) const;
    /// Replaces the value of `key`. An invalid value is kept like any other.
    void setApplicationParameter(QString const& key, QVariant const& value);

private:
    ApplicationParametersManagerImpl() = default;
    ~ApplicationParametersManagerImpl() = default;

    mutable std::mutex mutex;
    QMap<QString, QVariant> parameters;
};
