#pragma once

#include "inhouse/Export.h"

#include <QList>
#include <QString>

class QDomElement;
class QDomNodeList;

/// Looking things up in an XML document. Names are compared exactly. Who calls this links Qt6::Xml.
class SURFACEIO_INHOUSE_EXPORT DomHelper
{
public:
    DomHelper() = delete;

    /// The first child element named `tag`; a null element when there is none.
    static QDomElement getFirstTagElement(QDomElement const& parent, QString const& tag);
    /// The child elements named `tag`, in document order.
    static QList<QDomElement> getTagElements(QDomElement const& parent, QString const& tag);
};

namespace deprecated {

/// Lookups that do not mind where an element stands.
class SURFACEIO_INHOUSE_EXPORT DomHelper
{
public:
    DomHelper() = delete;

    /// All descendants of `parent` named `tag`, in document order. The list is live: it follows changes of
    /// the document.
    static QDomNodeList getTagElementsRecursively(QDomElement const& parent, QString const& tag);
};

} // namespace deprecated
