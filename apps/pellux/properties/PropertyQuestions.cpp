#include "properties/PropertyQuestions.h"

#include "properties/PropertyTexts.h"
#include "runtime/QtText.h"
#include "runtime/QuietCommand.h"
#include "tree/EntityForms.h"

#include <OrvikCore/Dbg.h>
#include <TambCommandsInfra/CancelToken.h>

#include <JournalText.h>

#include <QCoreApplication>
#include <QMap>
#include <exception>
#include <memory>
#include <utility>

namespace Pellux {

using TambCommandsInfra::Value;
using TambVizCore::EntityId;

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("Properties", text);
}

/// @return the entity as commands take it; #f when it is gone.
Value find(const EntityId& entity)
{
    return RunQuietly("entity:by-id", {Value(EntityWords(entity))});
}

bool isFalse(const Value& value)
{
    return value.GetKind() == Value::Kind::Bool && !value.AsBool();
}

/// What a command that takes one entity answers; #f for one that is gone.
Value askOne(const char* command, const EntityId& entity)
{
    const Value found = find(entity);
    return isFalse(found) ? found : RunQuietly(command, {found});
}

void setValue(PropertyAnswer& answer, const Value& value, Unit unit, LengthUnit length)
{
    answer.value = ValueText(value, unit, length);
    answer.shown = ValueText(value, unit, length, Digits::Few);
}

QString scriptOf(const char* command, const EntityId& entity)
{
    return EntitiesForm(command, {entity});
}

/// A question whose answer needs no unit: type, name, layers.
PropertyQuestion plainQuestion(const char* label, const char* command, const EntityId& entity)
{
    return {translated(label), scriptOf(command, entity), [command, entity] {
                const Value value = askOne(command, entity);
                PropertyAnswer answer;
                answer.value = ValueText(value, Unit::None);
                answer.isThere = !answer.value.isEmpty();
                return answer;
            }};
}

PropertyQuestion bodyQuestion(const EntityId& entity)
{
    const QString script = QStringLiteral("(entity:name %1)").arg(scriptOf("entity:body", entity));
    return {translated("Body"), script, [entity] {
                const Value body = askOne("entity:body", entity);
                PropertyAnswer answer;
                if (isFalse(body))
                    return answer;
                answer.value = ValueText(RunQuietly("entity:name", {body}), Unit::None);
                answer.isThere = !answer.value.isEmpty();
                return answer;
            }};
}

PropertyQuestion colorQuestion(const EntityId& entity)
{
    return {translated("Colour"), scriptOf("entity:color", entity), [entity] {
                const Value color = askOne("entity:color", entity);
                PropertyAnswer answer;
                if (isFalse(color))
                    return answer;
                const Value::List& parts = color.AsList();
                const auto part = [&parts](std::size_t i) {
                    return static_cast<int>(parts[i].AsInteger());
                };
                answer.isThere = true;
                answer.color = QColor(part(0), part(1), part(2), part(3));
                answer.value = ValueText(color, Unit::None);
                return answer;
            }};
}

/// One measure that (entity:measure entity 'word) answers.
struct MeasureLine
{
    const char* label;
    const char* word;
    Unit unit;
    double factor; ///< What is shown for one of what is measured.
};

constexpr MeasureLine kMeasures[] = {
    {QT_TRANSLATE_NOOP("Properties", "Surface"), "surface", Unit::None, 1.0},
    {QT_TRANSLATE_NOOP("Properties", "Curve"), "curve", Unit::None, 1.0},
    {QT_TRANSLATE_NOOP("Properties", "Radius"), "radius", Unit::Length, 1.0},
    {QT_TRANSLATE_NOOP("Properties", "Diameter"), "radius", Unit::Length, 2.0},
    {QT_TRANSLATE_NOOP("Properties", "Length"), "length", Unit::Length, 1.0},
    {QT_TRANSLATE_NOOP("Properties", "Normal"), "normal", Unit::None, 1.0},
    {QT_TRANSLATE_NOOP("Properties", "Direction"), "direction", Unit::None, 1.0},
    {QT_TRANSLATE_NOOP("Properties", "Point on the axis"), "origin", Unit::Length, 1.0},
    {QT_TRANSLATE_NOOP("Properties", "Area"), "area", Unit::Area, 1.0},
    {QT_TRANSLATE_NOOP("Properties", "Centre"), "center", Unit::Length, 1.0},
    {QT_TRANSLATE_NOOP("Properties", "Volume"), "volume", Unit::Volume, 1.0},
};

PropertyQuestion measureQuestion(const MeasureLine& line, const EntityId& entity, LengthUnit length)
{
    const QByteArray command = QByteArray("entity:") + line.word;
    QString script = scriptOf(command.constData(), entity);
    if (line.factor != 1.0)
        script = QStringLiteral("(* %1 %2)").arg(QString::number(line.factor), script);
    return {
        translated(line.label), script, [&line, entity, length] {
            const Value found = find(entity);
            PropertyAnswer answer;
            if (isFalse(found))
                return answer;
            const Value result = RunQuietly("entity:measure", {found, Value::FromUtf8(line.word)});
            if (isFalse(result))
                return answer;
            const Value& value = result.AsList()[0];
            answer.isThere = true;
            setValue(answer, line.factor == 1.0 ? value : Value(line.factor * value.AsReal()),
                     line.unit, length);
            answer.how = ValueText(result.AsList()[1], Unit::None);
            return answer;
        }};
}

PropertyQuestion boxQuestion(const EntityId& entity, LengthUnit length)
{
    return {translated("Box"), scriptOf("entity:box", entity), [entity, length] {
                const Value box = askOne("entity:box", entity);
                PropertyAnswer answer;
                if (isFalse(box))
                    return answer;
                const Value::List& sides = box.AsList();
                const Value::List low(sides.begin(), sides.begin() + 3);
                const Value::List high(sides.begin() + 3, sides.end());
                answer.isThere = true;
                const auto text = [&](Digits digits) {
                    return ValueText(Value(low), Unit::None, length, digits) +
                           QStringLiteral(" \u2026 ") +
                           ValueText(Value(high), Unit::Length, length, digits);
                };
                answer.value = text(Digits::All);
                answer.shown = text(Digits::Few);
                return answer;
            }};
}

void addOne(std::vector<PropertyQuestion>& questions, const EntityId& entity, LengthUnit length)
{
    questions.push_back(plainQuestion("Type", "entity:type", entity));
    questions.push_back(plainQuestion("Name", "entity:name", entity));
    if (entity.SubEntityIndex() >= 0)
        questions.push_back(bodyQuestion(entity));
    questions.push_back(colorQuestion(entity));
    questions.push_back(plainQuestion("Layers", "entity:layer", entity));
    for (const MeasureLine& line : kMeasures)
        questions.push_back(measureQuestion(line, entity, length));
    questions.push_back(boxQuestion(entity, length));
}

/// Keeps measures from drawing dimensions: who only looks at properties has asked for none, and the
/// journal would not know of them.
class WithoutDimensions
{
public:
    WithoutDimensions() : m_before(RunQuietly("measure:draw", {Value(false)})) {}

    ~WithoutDimensions()
    {
        try {
            RunQuietly("measure:draw", {m_before});
        } catch (const std::exception& error) {
            OrvikCore::dbg << "-- properties : " << error.what() << std::endl;
        }
    }

    WithoutDimensions(const WithoutDimensions&) = delete;
    WithoutDimensions& operator=(const WithoutDimensions&) = delete;

private:
    Value m_before;
};

/// A command about two entities that gives a list, asked once for all lines that show some of it.
struct PairCommand
{
    const char* name;
    std::vector<EntityId> pair;
    Value result; ///< Nil until it was asked. Worker thread.

    const Value& Ask()
    {
        if (!result.IsNil())
            return result;
        const Value first = find(pair[0]);
        const Value second = find(pair[1]);
        const WithoutDimensions quietly;
        result =
            isFalse(first) || isFalse(second) ? Value(false) : RunQuietly(name, {first, second});
        return result;
    }
};

PropertyQuestion pairQuestion(const char* label, const std::shared_ptr<PairCommand>& command,
                              Unit unit, std::size_t position, LengthUnit length)
{
    const QString list = EntitiesForm(command->name, command->pair);
    const QString script = position == 0
                               ? QStringLiteral("(car %1)").arg(list)
                               : QStringLiteral("(list-ref %1 %2)").arg(list).arg(position);
    return {translated(label), script, [command, unit, position, length] {
                const Value& result = command->Ask();
                PropertyAnswer answer;
                if (isFalse(result))
                    return answer;
                answer.isThere = true;
                setValue(answer, result.AsList()[position], unit, length);
                answer.how = ValueText(result.AsList().back(), Unit::None);
                return answer;
            }};
}

void addPair(std::vector<PropertyQuestion>& questions, const std::vector<EntityId>& pair,
             LengthUnit length)
{
    const auto distance = std::make_shared<PairCommand>(PairCommand{"measure:distance", pair, {}});
    const auto angle = std::make_shared<PairCommand>(PairCommand{"measure:angle", pair, {}});
    questions.push_back(plainQuestion("First", "entity:type", pair[0]));
    questions.push_back(plainQuestion("Second", "entity:type", pair[1]));
    questions.push_back(pairQuestion("Distance", distance, Unit::Length, 0, length));
    questions.push_back(pairQuestion("From", distance, Unit::Length, 1, length));
    questions.push_back(pairQuestion("To", distance, Unit::Length, 2, length));
    questions.push_back(pairQuestion("Angle", angle, Unit::Angle, 0, length));
}

PropertyQuestion countQuestion(const std::vector<EntityId>& entities)
{
    return {translated("Selected"), QStringLiteral("(length (sel:get))"), [entities] {
                QMap<QString, int> kinds;
                for (const EntityId& entity : entities) {
                    TambCommandsInfra::CancelToken::Instance().ThrowIfCancelled();
                    ++kinds[ValueText(askOne("entity:type", entity), Unit::None)];
                }
                QStringList texts;
                for (auto kind = kinds.cbegin(); kind != kinds.cend(); ++kind)
                    texts << QStringLiteral("%1 \u00D7 %2").arg(kind.value()).arg(kind.key());
                PropertyAnswer answer;
                answer.isThere = true;
                answer.value = QStringLiteral("%1 (%2)")
                                   .arg(entities.size())
                                   .arg(texts.join(QStringLiteral(", ")));
                return answer;
            }};
}

PropertyQuestion sumQuestion(const char* label, const char* word, Unit unit,
                             const std::vector<EntityId>& entities, LengthUnit length)
{
    const QString script =
        QStringLiteral("(apply + (delq #f (map entity:%1 (sel:get))))").arg(QLatin1String(word));
    return {translated(label), script, [word, unit, entities, length] {
                PropertyAnswer answer;
                double sum = 0.0;
                bool isExact = true;
                for (const EntityId& entity : entities) {
                    TambCommandsInfra::CancelToken::Instance().ThrowIfCancelled();
                    const Value found = find(entity);
                    const Value one = isFalse(found) ? found
                                                     : RunQuietly("entity:measure",
                                                                  {found, Value::FromUtf8(word)});
                    if (isFalse(one))
                        continue;
                    answer.isThere = true;
                    sum += one.AsList()[0].AsReal();
                    isExact = isExact && one.AsList()[1].AsString() == L"exact";
                }
                setValue(answer, Value(sum), unit, length);
                answer.how = isExact ? QStringLiteral("exact") : QStringLiteral("triangles");
                return answer;
            }};
}

void addSums(std::vector<PropertyQuestion>& questions, const std::vector<EntityId>& entities,
             LengthUnit length)
{
    questions.push_back(countQuestion(entities));
    questions.push_back(sumQuestion("Sum of lengths", "length", Unit::Length, entities, length));
    questions.push_back(sumQuestion("Sum of areas", "area", Unit::Area, entities, length));
    questions.push_back(sumQuestion("Sum of volumes", "volume", Unit::Volume, entities, length));
}

} // namespace

std::vector<PropertyQuestion> PropertyQuestionsFor(const std::vector<EntityId>& entities,
                                                   LengthUnit length)
{
    std::vector<PropertyQuestion> questions;
    if (entities.size() == 1) {
        addOne(questions, entities.front(), length);
    } else if (!entities.empty()) {
        if (entities.size() == 2)
            addPair(questions, entities, length);
        addSums(questions, entities, length);
    }
    return questions;
}

} // namespace Pellux
