#include "interface/CadMessages.h"
#include "kernel/CadKernel.h"
#include "tests/DamagedFile.h"

#include <OrvikOs/Thread.h>
#include <OrvikOs/Utf8.h>

#include <OrvikModel/Model.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

// cad_seeds FILE FROM TO [SECONDS]: reads copies of a CAD file that seeds have damaged, each in a
// process of its own, which is ended after so many seconds. Prints each seed that gave no answer,
// and at the end how many were read, the slowest and the one that took most memory.

namespace {

using OrvikCad::CadFormat;
using OrvikCad::CadKernel;
using OrvikCad::CadMessages;
using OrvikCad::DamagedFile;

struct Answer
{
    int isRead;
    int hasText;
    double seconds;
    std::size_t bytes; ///< Greatest memory while reading, less that before.
};

std::size_t processBytes(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.compare(0, name.size() + 1, name + ":") == 0)
            return std::stoull(line.substr(name.size() + 1)) * 1024;
    return 0;
}

CadFormat formatOf(const std::string& file)
{
    const std::string end = file.substr(file.rfind('.') + 1);
    return end == "brep" ? CadFormat::Brep : end == "iges" ? CadFormat::Iges : CadFormat::Step;
}

Answer read(const std::string& file, CadFormat format)
{
    Answer answer{};
    CadKernel kernel;
    std::ofstream("/proc/self/clear_refs") << "5";
    const std::size_t before = processBytes("VmRSS");
    const auto start = std::chrono::steady_clock::now();
    OrvikOs::Thread worker;
    worker.Start([&] {
        const std::wstring path = OrvikOs::Utf8ToWide(file);
        CadMessages messages(path);
        OrvikModel::Model model;
        answer.isRead = kernel.Read(path, format, {}, model, messages);
        answer.hasText = !messages.Error().empty();
        if (std::getenv("CAD_SEEDS_TEXTS")) {
            std::fprintf(stderr, "%s\n", OrvikOs::WideToUtf8(messages.Error()).c_str());
            for (const auto& warning : messages.Warnings())
                std::fprintf(stderr, "  %s\n", OrvikOs::WideToUtf8(warning).c_str());
        }
    });
    worker.Join();
    answer.seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const std::size_t peak = processBytes("VmHWM");
    answer.bytes = peak > before ? peak - before : 0;
    return answer;
}

/// @return false when the process ended otherwise than by an answer.
bool readApart(const std::string& file, CadFormat format, unsigned seconds, Answer& answer,
               int& status)
{
    int ends[2];
    if (pipe(ends) != 0)
        return false;
    const pid_t child = fork();
    if (child == 0) {
        alarm(seconds);
        const Answer made = read(file, format);
        _exit(write(ends[1], &made, sizeof made) == sizeof made ? 0 : 1);
    }
    close(ends[1]);
    const bool isWhole = ::read(ends[0], &answer, sizeof answer) == sizeof answer;
    close(ends[0]);
    waitpid(child, &status, 0);
    return isWhole && answer.isRead != answer.hasText;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4) {
        std::fprintf(stderr, "cad_seeds FILE FROM TO [SECONDS]\n");
        return 2;
    }
    const std::string source = argv[1];
    std::ifstream stream(source, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    const CadFormat format = formatOf(source);
    const unsigned seconds = argc > 4 ? static_cast<unsigned>(std::atoi(argv[4])) : 20;
    const std::string folder = "/tmp/cad_seeds." + std::to_string(getpid());
    const std::string damaged = folder + source.substr(source.rfind('.'));
    unsigned failures = 0;
    unsigned readCount = 0;
    Answer slowest{};
    Answer greatest{};
    int slowestSeed = 0;
    int greatestSeed = 0;
    for (int seed = std::atoi(argv[2]); seed < std::atoi(argv[3]); ++seed) {
        std::ofstream(damaged, std::ios::binary)
            << DamagedFile(text, static_cast<std::uint32_t>(seed));
        Answer answer{};
        int status = 0;
        if (!readApart(damaged, format, seconds, answer, status)) {
            ++failures;
            std::printf("seed %d: %s %d\n", seed,
                        WIFSIGNALED(status)
                            ? WTERMSIG(status) == SIGALRM ? "no end, signal" : "ended by signal"
                            : "no answer, exit code",
                        WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status));
            std::fflush(stdout);
            continue;
        }
        readCount += answer.isRead ? 1 : 0;
        if (answer.seconds > slowest.seconds) {
            slowest = answer;
            slowestSeed = seed;
        }
        if (answer.bytes > greatest.bytes) {
            greatest = answer;
            greatestSeed = seed;
        }
    }
    std::remove(damaged.c_str());
    std::printf("%s: %u failures, %u read; slowest %.3f s (seed %d); most memory %.1f MB (seed "
                "%d), allowed %.1f MB\n",
                source.c_str(), failures, readCount, slowest.seconds, slowestSeed,
                static_cast<double>(greatest.bytes) / 1048576.0, greatestSeed,
                64.0 + 40.0 * static_cast<double>(text.size()) / 1048576.0);
    return failures == 0 ? 0 : 1;
}
