#include "app/ClockRows.h"
#include "app/Commands.h"
#include "app/WorldAccess.h"
#include "core/Settings.h"
#include "core/Text.h"
#include "core/WorldFiles.h"

namespace zonara {

int runNow(CommandContext& ctx, Args& args) {
    if (const auto extra = args.positionals(); !args.ok() || !extra.empty()) {
        ctx.err << "zonara now: "
                << (args.ok() ? "unexpected '" + extra.front() + "'" : args.error()) << "\n";
        return 1;
    }
    prepareWorld(ctx);
    Settings settings;
    settings.Load(ctx.paths.dataFile(settingsFileName));
    DstRuleList rules;
    loadDstRules(ctx.paths, rules);

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
