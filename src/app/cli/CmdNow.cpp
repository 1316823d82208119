#include "app/cli/ClockRows.h"
#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/TablePrinter.h"
#include "core/Text.h"

namespace zonara {

namespace {

Outcome runNow(CommandContext& ctx, Args& args) {
    if (Outcome done = expectNoWords(args); !done.ok()) {
        return done;
    }
    const Settings settings = ctx.loadSettings();
    const DstRuleList& rules = ctx.world().rules();

    const SystemTime utc = ctx.clock.utcNow();
    TablePrinter table(clockRowHeader());
    for (std::size_t i = 0; i < settings.slots.size(); ++i) {
        const ClockSlot& slot = settings.slots[i];
        std::string label = std::to_string(i);
        if (!ctx.tsv() && std::int32_t(i) == settings.selectedSlot) {
            label += "*";
        }
        table.add(clockRow({label, toUtf8(slot.cityName), toUtf8(slot.countryName),
                            slot.timeZoneIndex, slot.dstRuleIndex},
                           utc, rules, settings.use24Hour != 0, ctx.tsv()));
    }
    table.print(ctx.out, ctx.tsv());
    return {};
}

} // namespace

extern const Command nowCommand{
    .name = "now",
    .usage = "",
    .summary = "the four clock slots' local times",
    .help = "Shows the local time of the four clock slots of the settings; * marks the\n"
            "selected slot. Times follow the 24-hour setting.\n"
            "With --tsv: slot, city, country, date, time, weekday (0 Sunday), offset,\n"
            "daylight-saving state (-1 none, 0 standard, 1 daylight), zone.\n",
    .run = runNow,
};

} // namespace zonara
