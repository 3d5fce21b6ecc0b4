#include "foundation/Error.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/ScratchFolder.h"
#include "platform/settings/SettingsRegistry.h"

#include <fstream>

namespace paperkite::fuzz {
namespace {

constexpr const char* kKey = "Software\\Brindlewick\\Paperkite";

// Whatever the file holds: it reads, what is written reads back, and what was there stays.
const FuzzTarget target("settingsfile", [](std::string_view input) {
    const std::string file = Scratch("registry.ini");
    std::ofstream(file, std::ios::binary) << input;
    std::string before;
    {
        SettingsRegistry registry(file, Scratch("machine.ini"));
        before = registry.ReadValue(HKEY_CURRENT_USER, kKey, "kept").ToText();
        registry.ReadValue(HKEY_CURRENT_USER, std::string(kKey) + "\\Layout",
                           "ViewSplitterPercentage");
        registry.ReadValue(HKEY_LOCAL_MACHINE, "Software\\Brindlewick", "CommonPath");
        try {
            registry.CreateKey(HKEY_CURRENT_USER, kKey);
            registry.WriteValue(HKEY_CURRENT_USER, kKey, "written", 1, "ünd \\ \"so\",\n");
        } catch (const Error& error) {
            Require(!error.GetDescription().empty(), "refused without a word");
            return;
        }
    }
    SettingsRegistry again(file, Scratch("machine.ini"));
    Require(again.ReadValue(HKEY_CURRENT_USER, kKey, "written").ToText() == "ünd \\ \"so\",\n",
            "what was written does not read back");
    Require(again.ReadValue(HKEY_CURRENT_USER, kKey, "kept").ToText() == before,
            "a setting that was there is lost");
});

} // namespace
} // namespace paperkite::fuzz
