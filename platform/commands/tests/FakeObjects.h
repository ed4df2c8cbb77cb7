#ifndef TAMBCOMMANDSINFRA_TESTS_FAKEOBJECTS_H
#define TAMBCOMMANDSINFRA_TESTS_FAKEOBJECTS_H

#include <TambCommandsInfra/Command.h>
#include <TambCommandsInfra/ICommandObject.h>

#include <memory>
#include <string>

/// An entity that is nothing but a number.
class FakeEntity final : public TambCommandsInfra::ICommandObject
{
public:
    explicit FakeEntity(int number) : m_number(number) {}
    const char* TypeName() const override { return "entity"; }
    std::wstring Describe() const override { return L"entity " + std::to_wstring(m_number); }
    bool IsSameAs(const ICommandObject& other) const override
    {
        const auto* entity = dynamic_cast<const FakeEntity*>(&other);
        return entity && entity->m_number == m_number;
    }

private:
    int m_number;
};

/// An object of another type that keeps the default comparison.
class PlainObject final : public TambCommandsInfra::ICommandObject
{
public:
    const char* TypeName() const override { return "plain"; }
    std::wstring Describe() const override { return L"plain"; }
};

inline TambCommandsInfra::Value::Object MakeEntity(int number)
{
    return std::make_shared<FakeEntity>(number);
}

/// A command without parameters and result that follows every rule.
inline TambCommandsInfra::Command MakeCommand(const std::string& name)
{
    TambCommandsInfra::Command command;
    command.name = name;
    command.summary = "Does something.";
    command.example = "(" + name + ")";
    command.handler = [](const TambCommandsInfra::Arguments&) {
        return TambCommandsInfra::Value();
    };
    if (name.ends_with('?')) {
        command.result = TambCommandsInfra::ValueType::Bool;
        command.resultHelp = "whether it is so";
    }
    if (name.ends_with('!')) {
        command.effect = TambCommandsInfra::CommandEffect::Changes;
    }
    return command;
}

/// The same with parameters.
inline TambCommandsInfra::Command MakeCommand(const std::string& name,
                                              std::vector<TambCommandsInfra::Parameter> parameters)
{
    TambCommandsInfra::Command command = MakeCommand(name);
    command.parameters = std::move(parameters);
    return command;
}

#endif
