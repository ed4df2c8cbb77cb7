#include "gltf/GltfJson.h"

#include "gltf/GltfTexts.h"

#include <OrvikOs/Utf8.h>

#include <rapidjson/error/en.h>
#include <rapidjson/stream.h>

#include <cstdlib>
#include <cstring>
#include <new>

namespace OrvikMesh {

namespace {

/// The parser reads whole blocks of 16 bytes, also beyond the end of the text.
constexpr std::size_t kPadding = 32;
/// Values between two questions whether to stop.
constexpr std::size_t kPollValues = 1u << 14;
/// The largest whole number that every reader of JSON understands.
constexpr double kMaxWhole = 9007199254740992.0;

/// Hands what the parser finds on to the document, counts brackets and asks whether to stop.
template <class Document> class GuardedHandler
{
public:
    GuardedHandler(Document& document, const ReadOptions& options)
        : m_document(document), m_options(options)
    {
    }

    bool IsTooDeep() const { return m_depth > kMaxJsonDepth; }

    bool Null() { return poll() && m_document.Null(); }
    bool Bool(bool value) { return poll() && m_document.Bool(value); }
    bool Int(int value) { return poll() && m_document.Int(value); }
    bool Uint(unsigned value) { return poll() && m_document.Uint(value); }
    bool Int64(std::int64_t value) { return poll() && m_document.Int64(value); }
    bool Uint64(std::uint64_t value) { return poll() && m_document.Uint64(value); }
    bool Double(double value) { return poll() && m_document.Double(value); }
    bool RawNumber(const char* text, rapidjson::SizeType length, bool copy)
    {
        return poll() && m_document.RawNumber(text, length, copy);
    }
    bool String(const char* text, rapidjson::SizeType length, bool copy)
    {
        return poll() && m_document.String(text, length, copy);
    }
    bool Key(const char* text, rapidjson::SizeType length, bool copy)
    {
        return m_document.Key(text, length, copy);
    }
    bool StartObject() { return enter() && m_document.StartObject(); }
    bool StartArray() { return enter() && m_document.StartArray(); }
    bool EndObject(rapidjson::SizeType count)
    {
        --m_depth;
        return m_document.EndObject(count);
    }
    bool EndArray(rapidjson::SizeType count)
    {
        --m_depth;
        return m_document.EndArray(count);
    }

private:
    bool poll()
    {
        if (++m_values % kPollValues == 0)
            PollCancel(m_options);
        return true;
    }
    bool enter() { return ++m_depth <= kMaxJsonDepth && poll(); }

    Document& m_document;
    const ReadOptions& m_options;
    std::size_t m_depth = 0;
    std::size_t m_values = 0;
};

} // namespace

void* JsonMemory::Malloc(std::size_t size)
{
    if (size == 0)
        return nullptr;
    void* block = std::malloc(size);
    if (!block)
        throw std::bad_alloc();
    return block;
}

void* JsonMemory::Realloc(void* block, std::size_t /*oldSize*/, std::size_t newSize)
{
    if (newSize == 0) {
        std::free(block);
        return nullptr;
    }
    void* moved = std::realloc(block, newSize);
    if (!moved)
        throw std::bad_alloc();
    return moved;
}

void JsonMemory::Free(void* block)
{
    std::free(block);
}

GltfJson::GltfJson() : m_document(&m_pool) {}

GltfJson::~GltfJson() = default;

bool GltfJson::Parse(std::string_view text, std::uint64_t offset, const ReadOptions& options,
                     ReadMessages& messages)
{
    if (text.size() > kMaxJsonBytes) {
        messages.Fail(FillText(kGltfTooMuchJson, {std::to_wstring(kMaxJsonBytes)}));
        return false;
    }
    m_text.resize(text.size() + kPadding);
    std::memcpy(m_text.data(), text.data(), text.size());

    using Reader = rapidjson::GenericReader<rapidjson::UTF8<>, rapidjson::UTF8<>, JsonMemory>;
    GuardedHandler handler(m_document, options);
    rapidjson::ParseResult result;
    auto generate = [&](auto& /*document*/) {
        rapidjson::InsituStringStream stream(m_text.data());
        Reader reader;
        // Numbers are right to three units in the last place of a double. The parser's exact way
        // shifts a zero such as "0e-30" by a number of bits that is not defined.
        result = reader.Parse<rapidjson::kParseInsituFlag | rapidjson::kParseIterativeFlag>(
            stream, handler);
        return !result.IsError();
    };
    m_document.Populate(generate);
    const ReadPlace place = ReadPlace::Byte(offset + result.Offset());
    if (handler.IsTooDeep())
        messages.Fail(FillText(kGltfTooDeep, {std::to_wstring(kMaxJsonDepth)}), place);
    else if (result.IsError())
        messages.Fail(FillText(kGltfBadJson,
                               {OrvikOs::Utf8ToWide(rapidjson::GetParseError_En(result.Code()))}),
                      place);
    else if (!m_document.IsObject())
        messages.Fail(kGltfNotGltf);
    return !messages.HasError();
}

const JsonValue& GltfJson::Root() const
{
    return m_document;
}

const JsonValue* FindMember(const JsonValue& value, const char* name)
{
    if (!value.IsObject())
        return nullptr;
    const auto found = value.FindMember(name);
    return found == value.MemberEnd() ? nullptr : &found->value;
}

const JsonValue* FindList(const JsonValue& value, const char* name)
{
    const JsonValue* member = FindMember(value, name);
    return member && member->IsArray() ? member : nullptr;
}

std::optional<std::uint64_t> ToWhole(const JsonValue& value)
{
    if (!value.IsNumber())
        return std::nullopt;
    const double number = value.GetDouble();
    if (!(number >= 0.0 && number <= kMaxWhole))
        return std::nullopt;
    const auto whole = static_cast<std::uint64_t>(number);
    if (static_cast<double>(whole) != number)
        return std::nullopt;
    return whole;
}

std::optional<std::uint64_t> WholeMember(const JsonValue& value, const char* name)
{
    const JsonValue* member = FindMember(value, name);
    return member ? ToWhole(*member) : std::nullopt;
}

std::optional<std::uint64_t> WholeMember(const JsonValue& value, const char* name,
                                         std::uint64_t absent)
{
    const JsonValue* member = FindMember(value, name);
    return member ? ToWhole(*member) : absent;
}

bool ReadNumbers(const JsonValue& value, const char* name, double* numbers, std::size_t count)
{
    const JsonValue* list = FindList(value, name);
    if (!list || list->Size() != count)
        return false;
    for (const JsonValue& number : list->GetArray())
        if (!number.IsNumber())
            return false;
    for (rapidjson::SizeType i = 0; i < count; ++i)
        numbers[i] = (*list)[i].GetDouble();
    return true;
}

std::string_view TextOf(const JsonValue* value)
{
    if (!value || !value->IsString())
        return {};
    return {value->GetString(), value->GetStringLength()};
}

std::wstring WideTextOf(const JsonValue* value)
{
    return OrvikOs::Utf8ToWide(TextOf(value));
}

} // namespace OrvikMesh
