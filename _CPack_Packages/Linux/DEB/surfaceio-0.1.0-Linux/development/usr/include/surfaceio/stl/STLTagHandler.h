#pragma once

#include "framework/Export.h"

#include <QList>

/// Decides which facet tags of a binary STL file become surfaces of their own. A value type; it only ever
/// looks at the tag, never at the subTag.
class SURFACEIO_EXPORT STLTagHandler
{
public:
    /// Keeps the tags; what they mean is up to the derived class.
    explicit STLTagHandler(QList<int> const& tags);
    STLTagHandler(STLTagHandler const&) = default;
    STLTagHandler& operator=(STLTagHandler const&) = default;
    virtual ~STLTagHandler();

    /// Whether facets of this tag make a surface of their own; others are gathered, per subTag, into surfaces
    /// of tag -1.
    virtual bool isAllowed(int tag) const = 0;
    /// Whether the file is to be split by tags at all. Without tags it is one surface.
    virtual bool hasTags() const;

protected:
    /// Whether `tag` is one of those given.
    bool isInTags(int tag) const;

private:
    QList<int> tags;
};

/// Allows the listed tags. An empty list makes the file one untagged surface.
class SURFACEIO_EXPORT InclusiveTagHandler : public STLTagHandler
{
public:
    /// Allows `tags`, in any order, repeated or not.
    explicit InclusiveTagHandler(QList<int> const& tags);
    InclusiveTagHandler(InclusiveTagHandler const&) = default;
    InclusiveTagHandler(InclusiveTagHandler&&) = default;
    InclusiveTagHandler& operator=(InclusiveTagHandler const&) = default;
    InclusiveTagHandler& operator=(InclusiveTagHandler&&) = default;
    ~InclusiveTagHandler() override;

    /// Whether `tag` is listed.
    bool isAllowed(int tag) const override;
};

/// Allows every tag but the listed ones. An empty list makes the file one untagged surface.
class SURFACEIO_EXPORT ExclusiveTagHandler : public STLTagHandler
{
public:
    /// Refuses `tags`, in any order, repeated or not.
    explicit ExclusiveTagHandler(QList<int> const& tags);
    ExclusiveTagHandler(ExclusiveTagHandler const&) = default;
    ExclusiveTagHandler(ExclusiveTagHandler&&) = default;
    ExclusiveTagHandler& operator=(ExclusiveTagHandler const&) = default;
    ExclusiveTagHandler& operator=(ExclusiveTagHandler&&) = default;
    ~ExclusiveTagHandler() override;

    /// Whether `tag` is not listed.
    bool isAllowed(int tag) const override;
};

/// Splits by tags and allows all of them.
class SURFACEIO_EXPORT UseAllTagsHandler : public STLTagHandler
{
public:
    /// Needs no list.
    UseAllTagsHandler();
    UseAllTagsHandler(UseAllTagsHandler const&) = default;
    ~UseAllTagsHandler() override;

    /// True.
    bool isAllowed(int tag) const override;
    /// True, without a list.
    bool hasTags() const override;
};
