#include "app/cli/WorldAccess.h"

#include "core/WorldFiles.h"

namespace zonara {

WorldAccess::Preparation WorldAccess::prepare() {
    Preparation preparation;
    if (prepared) {
        return preparation;
    }
    prepared = true;
    if (!dataFilesChanged(paths)) {
        return preparation;
    }
    preparation.rebuilt = true;
    CountryList list;
    switch (rebuildDataFiles(paths, list)) {
    case RebuildResult::Done:
        break;
    case RebuildResult::NotWritten:
        preparation.problem = "cannot rewrite the world files in '" + paths.dataDir().string() +
                              "'; using them as they are";
        break;
    case RebuildResult::StampNotWritten:
        preparation.problem = "cannot write '" + paths.dataFile(stampFileName).string() +
                              "'; the world files will be prepared again next time";
        break;
    }
    return preparation;
}

CityCatalog& WorldAccess::catalog() {
    prepare();
    return cityCatalog;
}

const DstRuleList& WorldAccess::rules() {
    prepare();
    if (!ruleList) {
        ruleList.emplace();
        loadDstRules(paths, *ruleList);
    }
    return *ruleList;
}

} // namespace zonara
