#include "CadTest.h"

#include "ScopedTempDir.h"
#include "kernel/CadKernel.h"

#include <OrvikOs/Thread.h>
#include <OrvikOs/Utf8.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>

namespace OrvikCad {

using OrvikModel::Model;
using OrvikModel::ModelNode;
using OrvikModel::NodeKind;
using TambCommandsInfra::CancelScope;
using TambCommandsInfra::CancelToken;
using TambVizCore::Utils;

namespace {

CadFormat formatOf(const std::wstring& file)
{
    const std::wstring extension = Utils::ToUpperAscii(Utils::GetFileExtension(file));
    if (extension == L"IGES" || extension == L"IGS")
        return CadFormat::Iges;
    return extension == L"BREP" ? CadFormat::Brep : CadFormat::Step;
}

void collect(const ModelNode& node, NodeKind kind, std::vector<const ModelNode*>& found)
{
    if (node.kind == kind)
        found.push_back(&node);
    for (const auto& child : node.children)
        collect(*child, kind, found);
}

} // namespace

bool ReadResult::WarnsOf(std::wstring_view text) const
{
    return std::any_of(warnings.begin(), warnings.end(), [text](const std::wstring& warning) {
        return warning.find(text) != std::wstring::npos;
    });
}

ReadResult ReadCad(const std::wstring& file, const CadOptions& options, const KernelLimits& limits)
{
    const std::wstring path = file.find(L'/') == std::wstring::npos
                                  ? OrvikOs::Utf8ToWide(ORVIK_TEST_DATA) + L"/" + file
                                  : file;
    ReadResult result;
    OrvikOs::Thread worker;
    worker.Start([&] {
        CancelToken& token = CancelToken::Instance();
        std::optional<CancelScope> job;
        if (token.RunningJob() == 0)
            job.emplace(token, token.NextJobNumber());
        CadMessages messages(path);
        result.isRead =
            CadKernel(limits).Read(path, formatOf(path), options, result.model, messages);
        result.error = messages.Error();
        result.warnings = messages.Warnings();
    });
    worker.Join();
    return result;
}

ReadResult ReadCadText(std::string_view text, const std::string& fileName,
                       const KernelLimits& limits)
{
    const ScopedTempDir folder;
    return ReadCad(folder.Write(fileName, text), {}, limits);
}

std::string TestModelText(const std::string& name)
{
    std::ifstream file(std::string(ORVIK_TEST_DATA) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<const ModelNode*> NodesOf(const Model& model, NodeKind kind)
{
    std::vector<const ModelNode*> found;
    for (const auto& node : model.nodes)
        collect(*node, kind, found);
    return found;
}

} // namespace OrvikCad
