#include "inhouse/coreio/DomHelper.h"

#include <QDomElement>
#include <QDomNodeList>

QDomElement DomHelper::getFirstTagElement(QDomElement const& parent, QString const& tag)
{
    return parent.firstChildElement(tag);
}

QList<QDomElement> DomHelper::getTagElements(QDomElement const& parent, QString const& tag)
{
    QList<QDomElement> elements;
    for (QDomElement element = parent.firstChildElement(tag); !element.isNull();
         element = element.nextSiblingElement(tag))
        elements.append(element);
    return elements;
}

QDomNodeList deprecated::DomHelper::getTagElementsRecursively(QDomElement const& parent, QString const& tag)
{
    return parent.elementsByTagName(tag);
}
