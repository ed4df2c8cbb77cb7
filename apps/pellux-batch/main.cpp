#include "BatchRun.h"
#include "Options.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    PelluxBatch::Options options;
    const PelluxBatch::ParseResult parsed = PelluxBatch::ParseOptions(argc, argv, options);
    if (!parsed.run) {
        (parsed.exitCode == 0 ? std::cout : std::cerr) << parsed.message;
        return parsed.exitCode;
    }
    try {
        return static_cast<int>(PelluxBatch::BatchRun(options).Run());
    } catch (const std::exception& error) {
        std::cerr << "pellux-batch: " << error.what() << std::endl;
        return static_cast<int>(PelluxBatch::ExitCode::CannotStart);
    }
}
