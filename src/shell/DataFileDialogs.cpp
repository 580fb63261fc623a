#include "shell/DataFileDialogs.h"

#include "shell/Document.h"

namespace tarvex {

namespace {

constexpr const char* kFilter = "XML (*.xml)|*.xml|All (*.*)|*.*";
constexpr const char* kExtension = "xml";

std::optional<std::string> NoneWhenEmpty(std::optional<std::string> path)
{
    return path && path->empty() ? std::nullopt : std::move(path);
}

}

void DataFileDialogs::Used(const std::string& path)
{
    const std::size_t end = path.rfind('/');
    folder_ = end == std::string::npos ? "." : path.substr(0, end);
}

std::optional<std::string> DataFileDialogs::AskOpen(const std::string& proposal)
{
    return NoneWhenEmpty(prompts_.AskOpenFile({"Open", folder_, proposal, kFilter, kExtension}));
}

std::optional<std::string> DataFileDialogs::AskSave(Document& document, const std::string& proposal)
{
    auto path = NoneWhenEmpty(prompts_.AskSaveFile({"Save As", folder_, proposal, kFilter, kExtension}));
    return path && Allows(document, *path) ? std::move(path) : std::nullopt;
}

bool DataFileDialogs::Allows(Document& document, const std::string& path)
{
    const bool allowed = document.TestForApplicationReservedFilepath(path);
    if (!allowed)
        prompts_.Tell(path + " is a reserved complete filename. Please select another file.", "Reserved File Selected");
    return allowed;
}

}
