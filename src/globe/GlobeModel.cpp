#include "globe/GlobeModel.h"

#include "core/ClockSlot.h"
#include "core/Settings.h"

namespace zonara {

MapPair mapPairFor(const DeviceProfile& profile) {
    const bool large = (profile.width == 480 || profile.width == 640) && !profile.secondDisplay;
    if (large) {
        return {"daymap_640x320.jpg", "nightmap_640x320.jpg", 640, 320};
    }
    return {"daymap_320x160.jpg", "nightmap_320x160.jpg", 320, 160};
}

ClockFace stripClockFaceFor(const DeviceProfile& profile) {
    const bool high = profile.highResolution;
    if (profile.secondDisplay) {
        return high ? ClockFace{"clock64x64.jpg", 64, 26} : ClockFace{"clock42x42.jpg", 42, 20};
    }
    if (profile.width == profile.height) {
        return high ? ClockFace{"clock128x128.jpg", 128, 56} : ClockFace{"clock56x56.jpg", 56, 25};
    }
    return high ? ClockFace{"clock128x128.jpg", 128, 60} : ClockFace{"clock64x64.jpg", 64, 30};
}

StripLayout stripLayoutFor(int clientWidth, int clientHeight, int menuBarHeight, int mapHeight,
                           bool secondDisplay) {
    StripLayout layout;
    layout.rect = {0, mapHeight, clientWidth, clientHeight - menuBarHeight};
    const bool portrait = clientHeight > clientWidth;
    if (portrait && !secondDisplay) {
        layout.stripMode = 0;
        layout.layoutMode = 1;
    } else {
        layout.stripMode = 3;
        layout.layoutMode = 4;
    }
    return layout;
}

int globeFontPixels(int dpi) {
    return globeFontPoints * dpi / 72;
}

int mapColumnOf(float longitude, int mapWidth) {
    return static_cast<int>((longitude + 180) * (float(mapWidth) * 0.0027777778f));
}

int mapRowOf(float latitude, int mapHeight) {
    return static_cast<int>((90 - latitude) * (float(mapHeight) * 0.0055555557f));
}

GlobeModel::GlobeModel(int clientWidth, int mapWidth, int mapHeight)
    : clientWidth(clientWidth), width(mapWidth), height(mapHeight) {}

void GlobeModel::attach(Settings& record) {
    settings = &record;
}

void GlobeModel::setMapSize(int mapWidth, int mapHeight) {
    width = mapWidth;
    height = mapHeight;
}

void GlobeModel::show(std::uint32_t nowMs) {
    scroll = 0;
    busyFlag = true;
    lastShade = nowMs;
}

RefreshKind GlobeModel::tick(std::uint32_t nowMs) {
    // The sum wraps like the tick count itself.
    if (nowMs <= std::uint32_t(lastShade + reshadeIntervalMs)) {
        return RefreshKind::Clock;
    }
    lastShade = nowMs;
    return RefreshKind::Full;
}

bool GlobeModel::takeBusy() {
    const bool was = busyFlag;
    busyFlag = false;
    return was;
}

int GlobeModel::selectedSlot() const {
    return settings ? settings->selectedSlot : 0;
}

const ClockSlot* GlobeModel::selectedCity() const {
    if (!settings) {
        return nullptr;
    }
    const int slot = settings->selectedSlot;
    return &settings->slots[std::size_t(slot >= 0 && slot < 4 ? slot : 0)];
}

void GlobeModel::centreOnSelected() {
    const ClockSlot* city = selectedCity();
    if (!city) {
        return;
    }
    scroll = mapColumnOf(city->longitude, width) - (clientWidth >> 1);
    if (scroll < 0) {
        scroll += width;
    }
}

KeyOutcome GlobeModel::key(int keyCode) {
    switch (keyCode) {
    case KeyLeft:
        scroll -= 10;
        // Not the wrapped value: from 5 the view jumps to W - 10.
        if (scroll < 0) {
            scroll = width - 10;
        }
        return KeyOutcome::Scrolled;
    case KeyRight:
        scroll += 10;
        if (scroll >= width) {
            scroll = 0;
        }
        return KeyOutcome::Scrolled;
    case KeyUp:
    case KeyDown:
        if (!settings) {
            return KeyOutcome::Ignored;
        }
        if (keyCode == KeyUp) {
            settings->selectedSlot =
                settings->selectedSlot - 1 < 0 ? 3 : settings->selectedSlot - 1;
        } else {
            settings->selectedSlot =
                settings->selectedSlot + 1 > 3 ? 0 : settings->selectedSlot + 1;
        }
        centreOnSelected();
        return KeyOutcome::SlotChanged;
    case KeyTwo:
    case KeyThree:
        return KeyOutcome::PassedToParent;
    default:
        return KeyOutcome::Ignored;
    }
}

std::vector<MapPiece> GlobeModel::mapPieces() const {
    if (width <= 0 || height <= 0) {
        return {};
    }
    if (scroll + clientWidth >= width) {
        return {{scroll, width - scroll, 0}, {0, scroll - width + clientWidth, width - scroll}};
    }
    return {{scroll, clientWidth, 0}};
}

std::vector<MarkerPlacement> GlobeModel::markers(int markerWidth, int markerHeight) const {
    if (!settings) {
        return {};
    }
    std::vector<MarkerPlacement> placed(settings->slots.size());
    for (std::size_t i = 0; i < placed.size(); ++i) {
        const ClockSlot& city = settings->slots[i];
        int x = mapColumnOf(city.longitude, width) - scroll;
        const int y = mapRowOf(city.latitude, height);
        if (x < 1) {
            x += width;
        }
        placed[i].centre = {x, y};
        placed[i].topLeft = {x - markerWidth / 2, y - markerHeight / 2};
        placed[i].opaque = int(i) == settings->selectedSlot;
    }
    return placed;
}

} // namespace zonara
