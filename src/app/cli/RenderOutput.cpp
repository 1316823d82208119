#include "app/cli/RenderOutput.h"

#include <QImage>
#include <QString>

#include "app/OffscreenApp.h"

namespace zonara {

Outcome drawingProblem(const OffscreenApp& application) {
    if (!application.usable()) {
        return fail("cannot draw: a non-widget Qt application is running");
    }
    return {};
}

Outcome savePng(const QImage& image, const std::filesystem::path& out) {
    if (!image.save(QString::fromStdString(out.string()), "PNG")) {
        return fail("cannot write " + out.string());
    }
    return {};
}

std::string screenText(const DeviceProfile& profile) {
    return std::to_string(profile.width) + "x" + std::to_string(profile.height);
}

} // namespace zonara
