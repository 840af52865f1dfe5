#include "replay/scripted_run.h"

#include "platform/common/device_path.h"

namespace replay
{
namespace
{

template <class... Functions> struct Overloaded : Functions... {
    using Functions::operator()...;
};
template <class... Functions> Overloaded(Functions...) -> Overloaded<Functions...>;

} // namespace

ScriptedRun::ScriptedRun(platform::VirtualDevice &device, const Script &script, Checks::Report reportUnmet)
    : device_(device), script_(script), checks_(script, std::move(reportUnmet)),
      wantsChecksums_(checks_.any()), pictureChecksum_(device.display.cxWidth, device.display.cyHeight)
{
}

ScriptedRun::~ScriptedRun() { device_.onFrame = nullptr; }

void ScriptedRun::prepare()
{
    device_.switchOn(script_.clock);
    device_.frameCostMs = script_.frameCostMs;
    device_.refreshRate = script_.refreshRate;
    device_.displayError = script_.displayError;
    device_.copyRunning = script_.copyRunning;
    device_.windowFails = script_.windowFails;
    for (const std::string &name : script_.hiddenFiles)
        device_.hiddenFiles.insert(platform::common::toDevicePath(name));
    for (const TimedAction &timed : script_.timeline)
        device_.schedule(timed.atMs, [this, &timed] { carryOut(timed.action); });
    device_.onFrame = [this] { followFrame(); };
}

void ScriptedRun::carryOut(const Action &action)
{
    const Overloaded carrier = {
        [this](const Message &message) { device_.post(message.number, message.wParam, message.lParam); },
        [this](const Foreground &change) {
            if (change.entered)
                device_.enterForeground();
            else
                device_.leaveForeground();
        },
        [this](const FrameCost &cost) {
            device_.frameCostMs = cost.ms;
            device_.refreshRate = 0;
        },
        [this](const Refresh &refresh) { device_.refreshRate = refresh.rate; },
        [this](const FrameBuffer &change) { device_.frameBufferOn = change.on; },
        [this](const Snapshot &snapshot) { snapshots_.push_back(snapshot.name); },
        [this](const Check &) { checks_.carryOut(); },
    };
    std::visit(carrier, action);
}

void ScriptedRun::followFrame()
{
    const auto *pixels = reinterpret_cast<const std::uint16_t *>(device_.frameBuffer.data());
    ShownFrame frame{++frames_, {pixels, device_.frameBuffer.size() / sizeof *pixels}, 0, 0};
    if (wantsChecksums_) {
        frame.checksum = pictureChecksum_.of(frame.picture);
        runningChecksum_.add(frame.checksum);
        frame.runningChecksum = runningChecksum_.value();
    }
    checks_.compare(frame.number, frame.runningChecksum);
    if (onFrame)
        onFrame(frame);
}

bool ScriptedRun::finish()
{
    checks_.finish(frames_);
    return checks_.areMet();
}

} // namespace replay
