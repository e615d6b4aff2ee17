#pragma once

#include "inhouse/Export.h"

#include <memory>

/// Base of what a plan holds. Lives in a `std::shared_ptr`; one thread edits it at a time.
class SURFACEIO_INHOUSE_EXPORT DataObject : public std::enable_shared_from_this<DataObject>
{
public:
    DataObject() = default;
    DataObject(DataObject const&) = delete;
    DataObject& operator=(DataObject const&) = delete;
    virtual ~DataObject();

    /// Opens an edit. Edits nest; whoever looks at the object waits for the last one to close.
    void startEditing();
    /// Closes the edit opened last; the outermost one makes a new revision. Ignored when none is open.
    void stopEditing();
    /// Whether an edit is open.
    bool isEditing() const { return openEdits > 0; }
    /// How many edits have been completed.
    int getRevision() const { return revision; }

private:
    int openEdits = 0;
    int revision = 0;
};
