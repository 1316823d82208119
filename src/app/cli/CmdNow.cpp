#include "app/ClockRows.h"
#include "app/Commands.h"
#include "app/WorldAccess.h"
#include "core/Text.h"

namespace zonara {

int runNow(CommandContext& ctx, Args& args) {
    if (!expectNoMoreArgs(ctx, args, "now")) {
        return 1;
    }
    const auto [settings, rules] = loadClockSetup(ctx);

    const SystemTime utc = ctx.clock.utcNow();
    TablePrinter table(clockRowHeader());
    for (std::size_t i = 0; i < settings.slots.size(); ++i) {
        const ClockSlot& slot = settings.slots[i];
        std::string label = std::to_string(i);
        if (!ctx.options.tsv && std::int32_t(i) == settings.selectedSlot) {
            label += "*";
        }
        table.add(clockRow({label, toUtf8(slot.cityName), toUtf8(slot.countryName),
                            slot.timeZoneIndex, slot.dstRuleIndex},
                           utc, rules, settings.use24Hour != 0, ctx.options.tsv));
    }
    table.print(ctx.out, ctx.options.tsv);
    return 0;
}

} // namespace zonara
