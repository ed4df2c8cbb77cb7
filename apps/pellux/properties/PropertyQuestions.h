#ifndef PELLUX_PROPERTIES_PROPERTYQUESTIONS_H
#define PELLUX_PROPERTIES_PROPERTYQUESTIONS_H

#include "properties/PropertyTexts.h"

#include <TambVizCore/EntityId.h>

#include <QColor>
#include <QString>
#include <functional>
#include <vector>

namespace Pellux {

/// What became of a question.
struct PropertyAnswer
{
    bool isThere = false; ///< false: the entities have nothing of the kind.
    QString value;        ///< With every digit that is known, to be copied.
    QString shown;        ///< The same with fewer digits, to be read.
    QString how;          ///< "exact", "triangles", or empty where that is no question.
    QColor color;         ///< Shown beside the value where it is valid.
};

/// One line of the properties.
struct PropertyQuestion
{
    QString label;
    QString script; ///< A form that gives the value.
    /// Asks; worker thread, inside a job. May throw what commands throw.
    std::function<PropertyAnswer()> ask;
};

/// @return what is to be known of entities: of one its measures, of two also what lies between
///         them, of more their sums; nothing for none.
/// @param length  The unit that all of them are measured in.
std::vector<PropertyQuestion>
PropertyQuestionsFor(const std::vector<TambVizCore::EntityId>& entities, LengthUnit length);

} // namespace Pellux

#endif
