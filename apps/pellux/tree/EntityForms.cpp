#include "tree/EntityForms.h"

#include "runtime/QtText.h"

#include <JournalText.h>

namespace Pellux {

using TambVizCore::EntityId;

QString EntityForm(const EntityId& entity)
{
    return QStringLiteral("(entity:by-id ") + Quoted(ToQt(EntityWords(entity))) + QLatin1Char(')');
}

QString EntitiesForm(const char* command, const std::vector<EntityId>& entities)
{
    QString form = QLatin1Char('(') + QLatin1String(command);
    for (const EntityId& entity : entities)
        form += QLatin1Char(' ') + EntityForm(entity);
    return form + QLatin1Char(')');
}

} // namespace Pellux
