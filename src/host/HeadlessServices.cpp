#include "host/HeadlessServices.h"

#include "designers/DesignerFactory.h"
#include "foundation/GlobalConfig.h"
#include "foundation/Services.h"
#include "foundation/Text.h"
#include "model/CommentPipeModel.h"
#include "model/ConfigurationReader.h"
#include "model/PageTemplateDocument.h"
#include "model/TemplateParser.h"
#include "model/XmlCheck.h"
#include "platform/files/LocalFileSystem.h"
#include "platform/html/HtmlServices.h"
#include "platform/settings/SettingsRegistry.h"
#include "platform/spelling/SpellServices.h"

#include <iostream>

namespace paperkite {

namespace {

std::size_t shownMessages = 0;

/// Nobody is there to answer: what would be shown is written down.
class ErrorStreamMessageBox : public MessageBox {
public:
    MessageAnswer Show(const std::string& text, const std::string& title, MessageIcon,
                       MessageButtons) override {
        std::cerr << title << ": " << text << '\n';
        ++shownMessages;
        return MessageAnswer::Ok;
    }
};

} // namespace

std::size_t ShownMessageCount() {
    return shownMessages;
}

std::shared_ptr<ModelControlHelper> InstallHeadlessServices(const std::string& applicationFolder) {
    auto helper = std::make_shared<ModelControlHelper>();
    Services& services = CurrentServices();
    services.Registry = std::make_shared<SettingsRegistry>();
    services.MessageBox = std::make_shared<ErrorStreamMessageBox>();
    services.FileSystem = std::make_shared<LocalFileSystem>();
    services.ControlHelper = helper;
    services.CreateCommentPipe = [] { return MakeRef<CommentPipeModel>(); };
    services.CreateParserTemplate = [] { return MakeRef<TemplateParser>(); };
    services.HTMLDOMFactory = MakeHTMLDOMFactory();
    services.HTMLTidy = MakeHTMLTidy();
    services.Spelling = MakeSpelling();
    services.CheckXML = &CheckXml;
    services.CreateDesigner = &MakeDesigner;
    services.ApplicationFolder = applicationFolder;
    const std::string configuration = applicationFolder + "/config";
    if (const auto problem =
            ConfigurationReader::Load(configuration, GlobalConfig().TaggedCommentDefs))
        std::cerr << problem->Message() << '\n';
    GlobalConfig().Templates.Clear();
    return helper;
}

void LoadPageTemplates() {
    Collection<Ref<PageTemplate>> found;
    for (const FileProblem& problem :
         PageTemplateDocument::OpenAll(CurrentServices().ApplicationFolder + "/templates", found))
        std::cerr << problem.Message() << '\n';
    auto& templates = GlobalConfig().Templates;
    templates.Clear();
    // Where nobody chose a template the first one counts.
    for (const bool isStandard : {true, false})
        for (const auto& known : found)
            if (EqualIgnoringCase(known->Name, kStandardTemplate) == isStandard)
                templates.Add(known, known->Name);
}

} // namespace paperkite
