#include "app/frame/FrameViews.h"

#include <array>

#include "clocks/CClockDetails.h"
#include "clocks/CMultiClock.h"
#include "controls/CommandIds.h"
#include "globe/CGlobe.h"

namespace zonara {

namespace {

ClockView* makeFullClock(const ViewSetup& setup, QWidget* parent) {
    return new CClockDetails(setup.paths, setup.clock, setup.profile, parent);
}

ClockView* makeGlobe(const ViewSetup& setup, QWidget* parent) {
    return new CGlobe(setup, parent);
}

ClockView* makeMultiClock(const ViewSetup& setup, QWidget* parent) {
    return new CMultiClock(setup, parent);
}

constexpr std::array viewTable = {
    FrameView{fullClockView, '2', cmd::FullClock, makeFullClock},
    FrameView{globeView, '1', cmd::Globe, makeGlobe},
    FrameView{multiClockView, '3', cmd::MultiClock, makeMultiClock},
};

} // namespace

std::span<const FrameView> frameViews() {
    return viewTable;
}

const FrameView* viewByKey(char key) {
    for (const FrameView& view : viewTable)
        if (view.key == key)
            return &view;
    return nullptr;
}

const FrameView* viewByCommand(int commandId) {
    for (const FrameView& view : viewTable)
        if (view.menuCommand == commandId)
            return &view;
    return nullptr;
}

} // namespace zonara
