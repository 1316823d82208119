#pragma once
// The world files as the commands use them: checked (and rebuilt when they
// changed) once, then the city catalog and the daylight-saving rules.

#include <optional>
#include <string>

#include "cities/CityCatalog.h"
#include "core/DstRule.h"
#include "core/Paths.h"

namespace zonara {

class WorldAccess {
  public:
    explicit WorldAccess(Paths paths) : paths(paths), cityCatalog(std::move(paths)) {}

    // What the rebuild check did; the first call runs it, later calls say nothing.
    struct Preparation {
        bool rebuilt = false;
        std::string problem; // why the rebuilt files could not be kept, if so
    };
    Preparation prepare();

    // Each prepares the files first.
    CityCatalog& catalog();
    const DstRuleList& rules();

  private:
    Paths paths;
    bool prepared = false;
    CityCatalog cityCatalog;
    std::optional<DstRuleList> ruleList;
};

} // namespace zonara
