#pragma once

#include "inhouse/Export.h"

#include <QList>
#include <QString>

#include <utility>

/// Over which stretch of a distractor's advancement a part moves along, in millimetres: it stands still
/// until `getStart()`, follows up to `getEnd()`, and stands still again.
class SURFACEIO_INHOUSE_EXPORT DistractorAdvancementConstraint
{
public:
    /// Moves along from `start` to `end`. The numbers are kept as they are given.
    DistractorAdvancementConstraint(float start, float end);

    /// Where the part begins to move, in millimetres of advancement.
    float getStart() const { return start; }
    /// Where it stops.
    float getEnd() const { return end; }
    /// How far a part under this constraint has moved at `advancement`.
    float getOffset(float advancement) const;

    /// Equal start and equal end; NaN equals nothing.
    bool operator==(DistractorAdvancementConstraint const& other) const = default;

private:
    float start;
    float end;
};

/// How far a distractor is opened, and which of its parts move with it. All lengths are millimetres.
/// One thread at a time.
class SURFACEIO_INHOUSE_EXPORT DistractorAdvancement
{
public:
    /// A part by its name, and over which stretch it moves.
    using MovablePart = std::pair<QString, DistractorAdvancementConstraint>;

    /// Opened by `current`, to be opened from `minimum` to `maximum` in steps of `step` (one turn of the
    /// screw). The numbers are kept as they are given.
    DistractorAdvancement(float current, float minimum, float maximum, float step);

    /// How far the distractor is opened now.
    float getCurrent() const { return current; }
    /// The smallest opening.
    float getMinimum() const { return minimum; }
    /// The largest opening.
    float getMaximum() const { return maximum; }
    /// What one turn of the screw opens.
    float getStep() const { return step; }

    /// Opens the distractor by the whole number of steps above the minimum that is nearest to `advancement`,
    /// kept within minimum and maximum. NaN changes nothing.
    void setCurrent(float advancement);

    /// Appends a part. One that is added twice moves under its first constraint.
    void addMovablePart(QString const& partName, DistractorAdvancementConstraint const& constraint);
    /// In the order of adding.
    QList<MovablePart> const& getMovableParts() const { return movableParts; }
    /// How far the part of that name has moved now; 0 for a part that is not movable.
    float getOffset(QString const& partName) const;

private:
    float current;
    float minimum;
    float maximum;
    float step;
    QList<MovablePart> movableParts;
};
