#include "host/CommandLine.h"

#include "foundation/Version.h"
#include "host/Commands.h"
#include "host/ConvertCommand.h"
#include "host/FindCommand.h"
#include "host/HomelessCommand.h"
#include "host/LinksCommand.h"
#include "host/MergeCommand.h"
#include "host/PreviewCommand.h"
#include "host/SpellCommand.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace paperkite {

namespace {

constexpr const char* kAbout =
    "Paperkite: writes the documentation of source code, in files of its own beside the source.";
constexpr const char* kItemHelp =
    "An item by its qualified name, \"root~Class~Member\"; the root may be left out, and \"::\" or "
    "\".\" may stand for \"~\"";

/// All options, filled while the command line is read.
struct Arguments {
    std::string Project;
    std::string Item;
    NewCommand New;
    TreeCommand Tree;
    CommentCommand Comment;
    CoverageCommand Coverage;
    HomelessCommand Homeless;
    MergeCommand Merge;
    ConvertCommand Convert;
    PreviewCommand Preview;
    FindCommand Find;
    ScreenshotRequest Screenshot;
    std::string Size = "1280x800";
    bool Json = false;
};

CLI::App* AddCommand(CLI::App& app, Arguments& arguments, const char* name, const char* about) {
    CLI::App* command = app.add_subcommand(name, about);
    command->add_option("PROJECT", arguments.Project, "The project file (.kiteproject)")
        ->required();
    return command;
}

void AddItem(CLI::App* command, Arguments& arguments, bool required) {
    command->add_option("ITEM", arguments.Item, kItemHelp)->required(required);
}

void AddNew(CLI::App& app, Arguments& arguments) {
    CLI::App* command = AddCommand(app, arguments, "new", "Make a project for a folder of source");
    command->add_option("--source", arguments.New.Source, "The folder of the source code")
        ->required();
    command->add_option("--title", arguments.New.Title,
                        "The title of the documentation (otherwise the folder's name)");
    command->add_option("--exclude", arguments.New.Excludes,
                        "Leave out files and folders that match a pattern with *, ** and ?; may be "
                        "given many times");
}

void AddTree(CLI::App& app, Arguments& arguments) {
    CLI::App* command = AddCommand(app, arguments, "tree", "Show the items of the code");
    AddItem(command, arguments, false);
    command->add_option("--depth", arguments.Tree.Depth, "How many levels below the item")
        ->check(CLI::Range(0, 1000))
        ->capture_default_str();
    command->add_flag("--json", arguments.Json, "Print JSON");
}

void AddComments(CLI::App& app, Arguments& arguments) {
    CLI::App* command = AddCommand(app, arguments, "comments", "Show the comments of an item");
    AddItem(command, arguments, true);
    command->add_flag("--json", arguments.Json, "Print JSON");
}

void AddComment(CLI::App& app, Arguments& arguments) {
    CLI::App* command =
        AddCommand(app, arguments, "comment", "Write or delete a comment of an item, and save");
    AddItem(command, arguments, true);
    CommentCommand& comment = arguments.Comment;
    command->add_option("--tag", comment.Tag, "The tag, such as \"##remarks\" or \"Remarks\"")
        ->required();
    auto* text = command->add_option(
        "--text", comment.Text, "The text; it replaces the one that the item has under the tag");
    auto* add = command->add_flag("--add", comment.Add, "Add another comment of the same tag");
    auto* remove = command->add_flag("--delete", comment.Delete, "Delete the tag's comments");
    remove->excludes(text)->excludes(add);
    command->callback([&comment, text] { comment.HasText = text->count() > 0; });
}

void AddCoverage(CLI::App& app, Arguments& arguments) {
    CLI::App* command =
        AddCommand(app, arguments, "coverage", "Count how much of the code is documented");
    command->add_option("--by", arguments.Coverage.By, "Count by kind or by file")
        ->check(CLI::IsMember({"kind", "file"}))
        ->capture_default_str();
    command
        ->add_option("--fail-under", arguments.Coverage.FailUnder,
                     "End with exit code 1 when less than this many per cent are documented")
        ->check(CLI::Range(0.0, 100.0));
    command->add_flag("--json", arguments.Json, "Print JSON");
}

void AddScreenshot(CLI::App& app, Arguments& arguments) {
    CLI::App* command = AddCommand(app, arguments, "screenshot", "Write a picture of the window");
    command->add_option("--out", arguments.Screenshot.Out, "The file to write (.png)")->required();
    command->add_option("--item", arguments.Screenshot.Item, kItemHelp);
    command->add_option("--size", arguments.Size, "Width and height in pixels")
        ->capture_default_str()
        ->check([](const std::string& text) {
            return ParseSize(text) ? std::string()
                                   : "Give the size as WIDTHxHEIGHT, such as 1280x800.";
        });
    command->add_flag("--dark", arguments.Screenshot.Dark, "Use the dark colours");
    command->add_option("--text-size", arguments.Screenshot.TextSize, "Text size in per cent")
        ->check(CLI::Range(100, 200))
        ->capture_default_str();
}

void AddMerge(CLI::App& app, Arguments& arguments) {
    CLI::App* command = app.add_subcommand(
        "merge", "Merge two versions of a project or Content File, as version control asks for it");
    command->add_option("BASE", arguments.Merge.Base, "The version before both; may be empty")
        ->required();
    command->add_option("OURS", arguments.Merge.Ours, "Our version; the result is written into it")
        ->required();
    command->add_option("THEIRS", arguments.Merge.Theirs, "The other version")->required();
}

void AddConvert(CLI::App& app, Arguments& arguments) {
    CLI::App* command = app.add_subcommand(
        "convert", "Print a page layout in the form in which it is edited, or bring it back");
    ConvertCommand& convert = arguments.Convert;
    command
        ->add_option("FILE", convert.File,
                     "A page layout (.html), or with --layout the span document of one")
        ->required();
    command
        ->add_option("--to", convert.To,
                     "span: each element that may be edited becomes a span. meta: spans become "
                     "elements again, and the text is tidied, as an editor saves it")
        ->required()
        ->check(CLI::IsMember({"span", "meta"}));
    command->add_option("--layout", convert.Layout,
                        "With --to meta: the layout that FILE was made from with --to span, where "
                        "its elements are taken from; otherwise FILE is a layout itself");
}

void AddHomeless(CLI::App& app, Arguments& arguments) {
    CLI::App* command = AddCommand(app, arguments, "homeless",
                                   "Show comments whose item is gone, and its likeliest new homes");
    command
        ->add_option("--adopt", arguments.Homeless.Adopt,
                     "Give the comments of the item OLD, and of what stood below it, to the item "
                     "NEW, and save")
        ->expected(2)
        ->type_name("OLD NEW");
    command->add_flag("--json", arguments.Json, "Print JSON");
}

void AddPreview(CLI::App& app, Arguments& arguments) {
    CLI::App* command = AddCommand(app, arguments, "preview",
                                   "Make the page of an item as its template would publish it");
    AddItem(command, arguments, true);
    PreviewCommand& preview = arguments.Preview;
    command->add_option("--template", preview.Template,
                        "A page template by its name, or by the path of its folder");
    command->add_option("--layout", preview.Layout, "A layout of the template by its name");
    command->add_flag("--edit", preview.Edit, "Mark every place of a comment, as for editing");
    command->add_option("--out", preview.Out,
                        "The file to write (.html), with what the page needs beside it; otherwise "
                        "the page is printed");
}

void AddFind(CLI::App& app, Arguments& arguments) {
    CLI::App* command = AddCommand(app, arguments, "find", "Find a text in all comments");
    FindCommand& find = arguments.Find;
    command->add_option("TEXT", find.Search.SearchFor, "The text, as a reader sees it")->required();
    auto* replace = command->add_option("--replace", find.ReplaceWith,
                                        "Put this in its place everywhere, and save");
    command->add_flag("--whole-word", find.Search.WholeWord, "Only whole words");
    command->add_flag("--case", find.Search.CaseSensitive, "Capitals and small letters differ");
    command->add_flag("--in-html", find.Search.SearchInHTML,
                      "Search the HTML source, tags included, instead of the text");
    command
        ->add_flag("--dry-run", find.DryRun,
                   "With --replace: show what would change, write nothing")
        ->needs(replace);
    command->add_flag("--json", arguments.Json, "Print JSON");
    command->callback([&find, replace] { find.Replace = replace->count() > 0; });
}

void AddSpell(CLI::App& app, Arguments& arguments) {
    CLI::App* command = AddCommand(app, arguments, "spell",
                                   "Check the spelling of all comments, or of those of an item and "
                                   "what stands below it");
    AddItem(command, arguments, false);
    command->add_flag("--json", arguments.Json, "Print JSON");
}

void AddLinks(CLI::App& app, Arguments& arguments) {
    CLI::App* command = AddCommand(app, arguments, "links",
                                   "List the links of all comments, and which lead nowhere");
    command->add_flag("--json", arguments.Json, "Print JSON");
}

int RunChosen(const CLI::App& app, Arguments& arguments, const WindowCommands& windows,
              Output& output) {
    const auto chosen = app.get_subcommands();
    if (chosen.empty()) return windows.Open(arguments.Project);
    const std::string name = chosen.front()->get_name();
    output.Json = arguments.Json;
    if (name == "new") return arguments.New.Run(arguments.Project, output);
    if (name == "homeless") return arguments.Homeless.Run(arguments.Project, output);
    if (name == "merge") return arguments.Merge.Run(output);
    if (name == "find") return arguments.Find.Run(arguments.Project, output);
    if (name == "links") return RunLinks(arguments.Project, output);
    if (name == "convert") return arguments.Convert.Run(output);
    if (name == "open") return windows.Open(arguments.Project);
    if (name == "screenshot") {
        ScreenshotRequest& request = arguments.Screenshot;
        request.Project = arguments.Project;
        const auto size = ParseSize(arguments.Size);
        request.Width = size->first;
        request.Height = size->second;
        return windows.Screenshot(request);
    }
    CommandTarget target{arguments.Project, arguments.Item};
    if (name == "preview") return arguments.Preview.Run(target, output);
    if (name == "spell") return RunSpell(target, output);
    if (name == "tree") return arguments.Tree.Run(target, output);
    if (name == "comments") return RunComments(target, output);
    if (name == "comment") return arguments.Comment.Run(target, output);
    if (name == "coverage") return arguments.Coverage.Run(target, output);
    return RunNext(target, output);
}

} // namespace

int RunCommandLine(int argc, const char* const* argv, const WindowCommands& windows,
                   std::ostream& out, std::ostream& err) {
    CLI::App app(kAbout, "paperkite");
    app.set_version_flag("--version", kVersion);
    app.require_subcommand(0, 1);
    Arguments arguments;
    AddCommand(app, arguments, "open", "Open a project in the window");
    AddNew(app, arguments);
    AddTree(app, arguments);
    AddComments(app, arguments);
    AddComment(app, arguments);
    AddCoverage(app, arguments);
    AddItem(AddCommand(app, arguments, "next", "Show the next item without comments"), arguments,
            false);
    AddScreenshot(app, arguments);
    AddHomeless(app, arguments);
    AddMerge(app, arguments);
    AddConvert(app, arguments);
    AddPreview(app, arguments);
    AddFind(app, arguments);
    AddSpell(app, arguments);
    AddLinks(app, arguments);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error, out, err) == 0 ? kExitDone : kExitBadInput;
    }
    Output output{out, err};
    return RunChosen(app, arguments, windows, output);
}

} // namespace paperkite
