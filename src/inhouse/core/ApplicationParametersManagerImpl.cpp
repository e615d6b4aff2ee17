#include "inhouse/core/ApplicationParametersManagerImpl.h"

ApplicationParametersManagerImpl& ApplicationParametersManagerImpl::instance()
{
    static ApplicationParametersManagerImpl store;
    return store;
}

QVariant ApplicationParametersManagerImpl::getApplicationParameter(QString const& key) const
{
    std::lock_guard const lock(mutex);
    return parameters.value(key);
}

void ApplicationParametersManagerImpl::setApplicationParameter(QString const& key, QVariant const& value)
{
    std::lock_guard const lock(mutex);
    parameters.insert(key, value);
}
