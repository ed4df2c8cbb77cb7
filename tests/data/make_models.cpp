// Writes the models that tests and benchmarks read. Each run writes the same content; where the
// kernel keeps layers or colours by address, entities may be numbered in another order.
//
//   make_models --list               prints what it can write
//   make_models FOLDER               writes all small models into the folder
//   make_models --large FOLDER       writes the large ones, for measurements
//   make_models FOLDER FILE...       writes the named ones

#include "TestModels.h"

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Standard_Failure.hxx>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>

namespace {

using TestData::TestModel;

struct Request
{
    bool isListing = false;
    bool isLarge = false;
    std::filesystem::path folder;
    std::vector<std::string> files; ///< Empty for all.
};

std::vector<TestModel> smallModels()
{
    std::vector<TestModel> models;
    for (const auto& group :
         {TestData::AssemblyModels(), TestData::PlainModels(), TestData::AnnotationModels()})
        models.insert(models.end(), group.begin(), group.end());
    return models;
}

Request parse(int count, char** arguments)
{
    Request request;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        if (argument == "--list")
            request.isListing = true;
        else if (argument == "--large")
            request.isLarge = true;
        else if (request.folder.empty())
            request.folder = argument;
        else
            request.files.push_back(argument);
    }
    return request;
}

std::vector<TestModel> chosenModels(const Request& request)
{
    if (request.files.empty())
        return request.isLarge ? TestData::LargeModels() : smallModels();
    std::vector<TestModel> all = smallModels();
    const std::vector<TestModel> large = TestData::LargeModels();
    all.insert(all.end(), large.begin(), large.end());
    std::vector<TestModel> chosen;
    for (const std::string& file : request.files) {
        const auto found = std::find_if(all.begin(), all.end(),
                                        [&](const TestModel& model) { return model.file == file; });
        if (found == all.end())
            throw std::invalid_argument("no such model: " + file);
        chosen.push_back(*found);
    }
    return chosen;
}

void list()
{
    for (const TestModel& model : smallModels())
        std::printf("%-24s %s\n", model.file, model.about);
    for (const TestModel& model : TestData::LargeModels())
        std::printf("%-24s %s (--large)\n", model.file, model.about);
}

int run(const Request& request)
{
    if (request.isListing) {
        list();
        return 0;
    }
    if (request.folder.empty()) {
        std::fputs("usage: make_models [--list] [--large] FOLDER [FILE...]\n", stderr);
        return 2;
    }
    Message::DefaultMessenger()->ChangePrinters().Clear();
    std::filesystem::create_directories(request.folder);
    for (const TestModel& model : chosenModels(request))
        model.write(request.folder / model.file);
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    try {
        return run(parse(count, arguments));
    } catch (const Standard_Failure& failure) {
        std::fprintf(stderr, "make_models: %s\n", failure.GetMessageString());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "make_models: %s\n", failure.what());
    }
    return 1;
}
