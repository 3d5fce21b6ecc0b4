#include "foundation/Error.h"
#include "platform/html/GumboDocument.h"
#include "platform/html/HtmlServices.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace paperkite {

namespace {

std::string BytesOf(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored))
        RaiseError(ErrorNumber::FileNotFound,
                   "There is no file \"" + path + "\". Check the path and its letter case.");
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream bytes;
    if (!std::filesystem::is_regular_file(path, ignored) || !stream || !(bytes << stream.rdbuf()))
        if (std::filesystem::is_directory(path, ignored) || stream.fail())
            RaiseError(ErrorNumber::PathOrFileAccess,
                       "The file \"" + path + "\" cannot be read. Check its permissions.");
    return std::move(bytes).str();
}

class GumboDOMFactory : public HTMLDOMFactory {
public:
    Ref<HTMLDocument> CreateFromString(const std::string& html, const Ref<Object>&) override {
        return MakeRef<GumboDocument>(html);
    }
    Ref<HTMLDocument> CreateFromFile(const std::string& path, const Ref<Object>&) override {
        return MakeRef<GumboDocument>(BytesOf(path));
    }
};

} // namespace

std::shared_ptr<HTMLDOMFactory> MakeHTMLDOMFactory() {
    return std::make_shared<GumboDOMFactory>();
}

} // namespace paperkite
