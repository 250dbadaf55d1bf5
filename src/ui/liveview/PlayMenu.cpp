#include "ui/liveview/PlayMenu.h"

#include "model/MainViewManager.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"

namespace {

constexpr int kMinute = 60; // seconds

struct Entry {
    const char* format; // "%1" is the unit
    int seconds;
};

// The formats are the recorder's own, spacing included.
const Entry kLong[] = {{"5 %1", 5},           {"10 %1", 10},          {"20 %1", 20},
                       {"30 %1", 30},         {"1 %1", kMinute},      {"2 %1", 2 * kMinute},
                       {"5 %1", 5 * kMinute}, {"10 %1", 10 * kMinute}};
const Entry kShort[] = {
    {"5 %1", 5}, {"10%1", 10}, {"30%1", 30}, {"1 %1", kMinute}, {"5 %1", 5 * kMinute}};

} // namespace

PlayMenu::PlayMenu(bool shortList, VyWidget* parent)
    : VyMenu(parent) {
    const VyString seconds = VyTranslation::tr(TextId::LiveView::SecondsUnit);
    const VyString minutes = VyTranslation::tr(TextId::LiveView::MinutesUnit);
    auto add = [&](const Entry* entries, size_t n) {
        for (size_t i = 0; i < n; ++i) {
            const Entry& e = entries[i];
            addAction(VyString(e.format).arg(e.seconds < kMinute ? seconds : minutes),
                      int(m_dwell.size()));
            m_dwell.push_back(e.seconds);
        }
    };
    if (shortList)
        add(kShort, sizeof kShort / sizeof kShort[0]);
    else
        add(kLong, sizeof kLong / sizeof kLong[0]);
    addSeparator();
    addAction(VyTranslation::tr(TextId::LiveView::SequenceOff), int(m_dwell.size()));
    m_dwell.push_back(kNoSequence);
    connect(this, &triggered, this, &PlayMenu::onTriggered);
}

VyString PlayMenu::remainingText(int seconds) {
    return VyString("%1: %2 s").arg(VyTranslation::tr(TextId::LiveView::Sequence)).arg(seconds);
}

void PlayMenu::onTriggered(VyObject*, VyObject* receiver) {
    auto* menu = static_cast<PlayMenu*>(receiver);
    const int item = menu->triggeredId();
    MainViewManager* manager = MainViewManager::instance();
    if (manager == nullptr || item < 0 || item >= int(menu->m_dwell.size()))
        return;
    manager->setSequenceDwell(menu->m_dwell[size_t(item)]);
}
