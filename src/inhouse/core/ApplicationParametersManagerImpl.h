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

    static ApplicationParametersManagerImpl& instance();

    /// An invalid value for a key that was never set.
    QVariant getApplicationParameter(QString const& key) const;
    void setApplicationParameter(QString const& key, QVariant const& value);

private:
    ApplicationParametersManagerImpl() = default;
    ~ApplicationParametersManagerImpl() = default;

    mutable std::mutex mutex;
    QMap<QString, QVariant> parameters;
};
