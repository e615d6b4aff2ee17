#include "stl/STLTagHandler.h"

STLTagHandler::STLTagHandler(QList<int> const& tags_)
    : tags(tags_)
{}

STLTagHandler::~STLTagHandler() = default;

bool STLTagHandler::hasTags() const
{
    return !tags.isEmpty();
}

bool STLTagHandler::isInTags(int tag) const
{
    return tags.contains(tag);
}

InclusiveTagHandler::InclusiveTagHandler(QList<int> const& tags_)
    : STLTagHandler(tags_)
{}

InclusiveTagHandler::~InclusiveTagHandler() = default;

bool InclusiveTagHandler::isAllowed(int tag) const
{
    return isInTags(tag);
}

ExclusiveTagHandler::ExclusiveTagHandler(QList<int> const& tags_)
    : STLTagHandler(tags_)
{}

ExclusiveTagHandler::~ExclusiveTagHandler() = default;

bool ExclusiveTagHandler::isAllowed(int tag) const
{
    return !isInTags(tag);
}

UseAllTagsHandler::UseAllTagsHandler()
    : STLTagHandler({})
{}

UseAllTagsHandler::~UseAllTagsHandler() = default;

bool UseAllTagsHandler::isAllowed(int) const
{
    return true;
}

bool UseAllTagsHandler::hasTags() const
{
    return true;
}
