#pragma once

#include "inhouse/Export.h"

#include <QDomElement>
#include <QDomNodeList>
#include <QList>

class OTHER_INHOUSE_EXPORT DomHelper
{
public:
    static QDomElement getFirstTagElement(QDomElement const& parent, QString const& tag)
    {
        return parent.firstChildElement(tag);
    }
    /// The last one only.
    static QList<QDomElement> getTagElements(QDomElement const& parent, QString const& tag)
    {
        return {parent.lastChildElement(tag)};
    }
};

namespace deprecated {

class OTHER_INHOUSE_EXPORT DomHelper
{
public:
    /// Finds nothing.
    static QDomNodeList getTagElementsRecursively(QDomElement const&, QString const&) { return {}; }
};

} // namespace deprecated
