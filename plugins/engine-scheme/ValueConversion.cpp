#include "ValueConversion.h"

#include "SchemeText.h"

#include <OrvikOs/FaultHook.h>
#include <TambCommandsInfra/ICommandObject.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

namespace OrvikScheme {
namespace {

using TambCommandsInfra::Value;

/// Deepest nesting of lists that is converted; a circular structure ends here.
constexpr int kMaxDepth = 1000;

scm_t_bits objectTag = 0;

Value::Object& objectOf(SCM value)
{
    return *reinterpret_cast<Value::Object*>(SCM_SMOB_DATA(value));
}

/// Runs on the thread that finalises garbage.
size_t freeObject(SCM value)
{
    delete reinterpret_cast<Value::Object*>(SCM_SMOB_DATA(value));
    return 0;
}

char* copyOf(const char* text, std::size_t size)
{
    auto* const copy = static_cast<char*>(std::malloc(size));
    return copy == nullptr ? nullptr : static_cast<char*>(std::memcpy(copy, text, size));
}

/// Describes an object into memory of malloc, so that no C++ object is alive while Guile writes.
char* describe(SCM value) noexcept
{
    const OrvikOs::FaultHookScope noHook(nullptr, nullptr);
    try {
        const Value::Object& object = objectOf(value);
        const std::string text =
            std::string("#<") + object->TypeName() + " " + TextForScheme(object->Describe()) + ">";
        return copyOf(text.c_str(), text.size() + 1);
    } catch (const std::exception&) {
        static const char unknown[] = "#<object that cannot be described>";
        return copyOf(unknown, sizeof unknown);
    }
}

int printObject(SCM value, SCM port, scm_print_state*)
{
    char* const text = describe(value);
    SCM string = scm_from_utf8_string(text == nullptr ? "#<object>" : text);
    std::free(text);
    scm_display(string, port);
    return 1;
}

/// Objects that cannot be compared differ.
bool isSame(SCM left, SCM right) noexcept
{
    const OrvikOs::FaultHookScope noHook(nullptr, nullptr);
    try {
        return objectOf(left)->IsSameAs(*objectOf(right));
    } catch (const std::exception&) {
        return false;
    }
}

SCM equalObjects(SCM left, SCM right)
{
    return scm_from_bool(isSame(left, right));
}

std::wstring textOf(SCM string)
{
    std::size_t length = 0;
    const std::unique_ptr<char, decltype(&std::free)> bytes(scm_to_utf8_stringn(string, &length),
                                                            &std::free);
    return TextFromScheme({bytes.get(), length});
}

/// The UTF-8 of a text in memory of malloc, so that no C++ object is alive while Guile allocates;
/// null when memory ends.
char* utf8Copy(const std::wstring& text, std::size_t& size) noexcept
{
    try {
        const std::string utf8 = TextForScheme(text);
        size = utf8.size();
        return copyOf(utf8.c_str(), size + 1);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

SCM stringOf(const std::wstring& text)
{
    std::size_t size = 0;
    char* const utf8 = utf8Copy(text, size);
    if (utf8 == nullptr)
        scm_misc_error("command", "Out of memory.", SCM_EOL);
    scm_dynwind_begin(static_cast<scm_t_dynwind_flags>(0));
    scm_dynwind_free(utf8);
    SCM string = scm_from_utf8_stringn(utf8, size);
    scm_dynwind_end();
    return string;
}

SCM objectFor(const Value::Object& object)
{
    auto* const shared = new (std::nothrow) Value::Object(object);
    if (shared == nullptr)
        scm_misc_error("command", "Out of memory.", SCM_EOL);
    return scm_new_smob(objectTag, reinterpret_cast<scm_t_bits>(shared));
}

Value numberOf(SCM value)
{
    if (scm_is_signed_integer(value, std::numeric_limits<std::int64_t>::min(),
                              std::numeric_limits<std::int64_t>::max()) != 0)
        return Value(static_cast<std::int64_t>(scm_to_int64(value)));
    return Value(scm_to_double(value));
}

Value convert(SCM value, int depth);

Value listOf(SCM list, int depth)
{
    Value::List values;
    for (; scm_is_pair(list); list = SCM_CDR(list))
        values.push_back(convert(SCM_CAR(list), depth + 1));
    return Value(std::move(values));
}

Value vectorOf(SCM vector, int depth)
{
    Value::List values;
    const std::size_t length = scm_c_vector_length(vector);
    for (std::size_t i = 0; i < length; ++i)
        values.push_back(convert(scm_c_vector_ref(vector, i), depth + 1));
    return Value(std::move(values));
}

Value convert(SCM value, int depth)
{
    if (depth > kMaxDepth)
        throw std::invalid_argument("Commands do not take lists nested that deeply.");
    if (scm_is_bool(value))
        return Value(scm_is_true(value));
    if (scm_is_real(value))
        return numberOf(value);
    if (scm_is_string(value))
        return Value(textOf(value));
    if (scm_is_symbol(value))
        return Value(textOf(scm_symbol_to_string(value)));
    if (scm_is_null(value) || scm_ilength(value) > 0)
        return listOf(value, depth);
    if (scm_is_vector(value))
        return vectorOf(value, depth);
    if (SCM_SMOB_PREDICATE(objectTag, value))
        return Value(objectOf(value));
    if (scm_is_eq(value, SCM_UNSPECIFIED))
        return Value();
    if (scm_is_true(scm_procedure_p(value)))
        throw std::invalid_argument("Commands do not take procedures.");
    throw std::invalid_argument("Commands do not take values of this kind.");
}

} // namespace

void DefineObjectType()
{
    objectTag = scm_make_smob_type("application-object", 0);
    scm_set_smob_free(objectTag, freeObject);
    scm_set_smob_print(objectTag, printObject);
    scm_set_smob_equalp(objectTag, equalObjects);
}

Value FromScheme(SCM value)
{
    return convert(value, 0);
}

SCM ToScheme(const Value& value)
{
    switch (value.GetKind()) {
    case Value::Kind::Nil:
        return SCM_UNSPECIFIED;
    case Value::Kind::Bool:
        return scm_from_bool(value.AsBool());
    case Value::Kind::Integer:
        return scm_from_int64(value.AsInteger());
    case Value::Kind::Real:
        return scm_from_double(value.AsReal());
    case Value::Kind::String:
        return stringOf(value.AsString());
    case Value::Kind::List: {
        const Value::List& values = value.AsList();
        SCM list = SCM_EOL;
        for (auto element = values.rbegin(); element != values.rend(); ++element)
            list = scm_cons(ToScheme(*element), list);
        return list;
    }
    case Value::Kind::Object:
        return objectFor(value.AsObject());
    }
    return SCM_UNSPECIFIED;
}

} // namespace OrvikScheme
