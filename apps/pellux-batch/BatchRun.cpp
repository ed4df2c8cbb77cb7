#include "BatchRun.h"

#include "Info.h"
#include "TreeReport.h"

#include <OrvikCore/AContentLoader.h>
#include <OrvikCore/AContentSaver.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikCore/Shell.h>
#include <OrvikOs/Clock.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/Utils.h>

#include <HostTree.h>
#include <InterruptHandling.h>
#include <PelluxApplication.h>
#include <Replay.h>
#include <ScriptRunner.h>

#include <iostream>

namespace PelluxBatch {
namespace {

using OrvikCore::MessageType;
using TambVizCore::Utils;

void show(const std::wstring& text, MessageType type)
{
    std::ostream& stream = type == MessageType::Output ? std::cout : std::cerr;
    // Both streams may be the same terminal: what is older must be seen first.
    if (type != MessageType::Output)
        std::cout.flush();
    stream << (type == MessageType::Warning ? "warning: " : "") << Utils::WstringToString(text);
    if (!text.empty() && text.back() != L'\n')
        stream << '\n';
    stream.flush();
}

void listCommands()
{
    const auto& table = TambCommandsInfra::CommandTable::Instance();
    for (const std::string& name : table.Names())
        std::cout << TambCommandsInfra::CommandTable::Signature(*table.Find(name)) << "\n    "
                  << table.Find(name)->summary << '\n';
}

void listFormat(const std::wstring& extension, const char* use, const std::wstring& description)
{
    std::cout << Utils::WstringToString(Utils::ToLowerAscii(extension)) << "  " << use << "  "
              << Utils::WstringToString(description) << '\n';
}

void listFormats()
{
    for (OrvikCore::AContentLoader* const loader :
         OrvikCore::SessionMgr::Instance().GetContentLoaderList()) {
        if (loader == nullptr)
            continue;
        for (const auto& [extension, description] : loader->ValidExtensions())
            listFormat(extension, loader->IsImporter() ? "import" : "load  ", description);
    }
    for (OrvikCore::AContentSaver* const saver :
         OrvikCore::SessionMgr::Instance().GetContentSaverList())
        if (saver != nullptr)
            for (const auto& [extension, description] : saver->ValidExtensions())
                listFormat(extension, "save  ", description);
}

bool isQuitRequested()
{
    const auto* const application = dynamic_cast<Pellux::PelluxApplication*>(
        OrvikCore::SessionMgr::Instance().GetApplication());
    return application != nullptr && application->IsQuitRequested();
}

} // namespace

BatchRun::BatchRun(const Options& options)
    : m_options(options), m_startedMs(OrvikOs::Clock::NowMs())
{
}

BatchRun::~BatchRun() = default;

ExitCode BatchRun::Run()
{
    m_interrupts = std::make_unique<Pellux::InterruptHandling>();
    std::wstring reason;
    if (!m_options.replay.empty() && !m_replay.Prepare(m_options, reason)) {
        show(L"pellux-batch: " + reason, MessageType::Error);
        return ExitCode::Failed;
    }
    ExitCode code = start();
    showTime("started");
    if (code == ExitCode::Good)
        code = work();
    m_host.DrainOutput();
    const bool isQuit = isQuitting();
    const int applicationCode = m_host.Stop();
    showTime("stopped");
    if (isInterrupted())
        return ExitCode::Interrupted;
    if (code == ExitCode::Good && isQuit)
        return static_cast<ExitCode>(applicationCode);
    if (code == ExitCode::Good && applicationCode != 0 && !m_ignoresQuit)
        return ExitCode::Failed;
    return code == ExitCode::Good && m_isCutShort ? ExitCode::CutShort : code;
}

ExitCode BatchRun::start()
{
    Pellux::StartOptions options;
    options.kind = {L"pellux-batch", /*isBatch=*/true};
    options.useConfiguration = m_options.useConfiguration;
    options.configurationFile = m_options.configurationFile;
    options.runStartupScripts = m_options.runStartupScripts;
    options.width = m_options.width;
    options.height = m_options.height;
    options.cameraName = m_options.cameraName;
    options.withTree = m_options.tree != InfoForm::None;
    options.withJournal =
        m_options.withJournal && !m_options.listCommands && !m_options.listFormats;
    options.output = show;
    options.jobObserver = m_interrupts.get();
    options.pluginMessage = [verbose = m_options.verbose](const std::wstring& text,
                                                          MessageType type) {
        if (verbose || type == MessageType::Error)
            show(text, type == MessageType::Error ? MessageType::Warning : type);
    };
    std::wstring reason;
    const Pellux::StartResult result = m_host.Start(options, reason);
    m_host.DrainOutput();
    if (result == Pellux::StartResult::Good)
        return ExitCode::Good;
    show(L"pellux-batch: " + reason, MessageType::Error);
    return result == Pellux::StartResult::BadConfiguration ? ExitCode::Usage
                                                           : ExitCode::CannotStart;
}

ExitCode BatchRun::work()
{
    if (!m_host.GetShell().GetIsStartupLoadOK()) {
        show(L"pellux-batch: a start-up script failed:\n" + m_host.GetShell().GetStartupError(),
             MessageType::Error);
        return ExitCode::Failed;
    }
    if (m_options.listCommands || m_options.listFormats) {
        if (m_options.listCommands)
            listCommands();
        if (m_options.listFormats)
            listFormats();
        return ExitCode::Good;
    }
    if (!m_options.replay.empty() && !replay())
        return ExitCode::Failed;
    for (const Step& step : m_options.steps) {
        if (!runStep(step))
            return ExitCode::Failed;
        if (isQuitting())
            return ExitCode::Good;
        showTime("step done");
    }
    report();
    if (!m_options.output.empty() && !writeOutput())
        return ExitCode::Failed;
    return ExitCode::Good;
}

bool BatchRun::runStep(const Step& step)
{
    switch (step.kind) {
    case Step::Kind::Load:
    case Step::Kind::Import:
        return runForms(Pellux::CommandOfStep(step), L"command line");
    case Step::Kind::Eval:
        return runForms(step.text, L"--eval");
    case Step::Kind::Script:
        break;
    }
    std::wstring text;
    if (!Pellux::ReadScript(step.text, text)) {
        show(L"Failed to read script file : " + step.text, MessageType::Error);
        return false;
    }
    return runForms(text, step.text);
}

bool BatchRun::runForms(const std::wstring& text, const std::wstring& source)
{
    Pellux::ScriptRunner runner(
        m_host.GetShell(), [this](const std::wstring& form) { return beforeForm(form); },
        [this] { return playInput(); });
    const bool good = runner.RunText(text, source);
    m_host.DrainOutput();
    return (good || m_isStoppedByQuit) && !isInterrupted();
}

bool BatchRun::replay()
{
    std::wstring reason;
    std::wstring cut;
    // A journal may end as its run did; this run goes on to its picture.
    m_ignoresQuit = true;
    const bool good = m_replay.Run(
        m_options, m_host.GetShell(), [this](const std::wstring& form) { return beforeForm(form); },
        [this] { return !isInterrupted(); }, [this] { m_host.DrainOutput(); }, reason, cut);
    m_host.DrainOutput();
    m_ignoresQuit = isQuitRequested();
    m_isCutShort = !cut.empty();
    if (m_isCutShort)
        show(cut, MessageType::Warning);
    if (!reason.empty())
        show(reason, MessageType::Error);
    return good && !isInterrupted();
}

bool BatchRun::writeOutput()
{
    // The picture belongs to this run, not to what a replay repeats.
    m_host.EndJournal();
    return runForms(L"(view:save-image " + Pellux::QuotedForScript(m_options.output) + L" " +
                        std::to_wstring(m_options.width) + L" " +
                        std::to_wstring(m_options.height) + L")",
                    L"--output");
}

void BatchRun::report()
{
    if (m_options.info == InfoForm::Text)
        std::cout << DescribeSessionText() << std::flush;
    else if (m_options.info == InfoForm::Json)
        std::cout << DescribeSessionJson() << std::flush;
    if (m_options.tree == InfoForm::None)
        return;
    Pellux::HostTree& tree = *m_host.GetTree();
    if (m_options.treeParts)
        tree.FillAll();
    std::cout << (m_options.tree == InfoForm::Json ? DescribeTreeJson(tree)
                                                   : DescribeTreeText(tree))
              << std::flush;
}

bool BatchRun::beforeForm(const std::wstring& form)
{
    m_host.BeginForm(form);
    m_host.DrainOutput();
    m_isStoppedByQuit = isQuitting();
    if (isInterrupted() || m_isStoppedByQuit)
        return false;
    show(L"> " + form, MessageType::Output);
    return true;
}

bool BatchRun::playInput()
{
    return m_host.GetInput().Play({[this] { return !isInterrupted(); },
                                   [this](const std::wstring& script, const std::wstring& source) {
                                       return runForms(script, source);
                                   }});
}

bool BatchRun::isQuitting() const
{
    return !m_ignoresQuit && isQuitRequested();
}

bool BatchRun::isInterrupted() const
{
    return m_interrupts->WasInterrupted();
}

void BatchRun::showTime(const char* what)
{
    if (m_options.verbose)
        std::cerr << "[" << OrvikOs::Clock::NowMs() - m_startedMs << " ms] " << what << std::endl;
}

} // namespace PelluxBatch
