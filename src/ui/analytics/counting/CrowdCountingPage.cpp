#include "ui/analytics/counting/CrowdCountingPage.h"

#include "model/AIManager.h"
#include "model/AnalyticsQueries.h"
#include "model/ParamAccess.h"
#include "runtime/VyLog.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/UiLook.h"
#include "ui/analytics/counting/CountingRegionEditor.h"

namespace {

// Pixels at 1920x1080.
constexpr int kColumnDesign = 360;
constexpr int kRowDesign = 48;
constexpr int kGapDesign = 24;
constexpr int kMaxLimit = 9999; // people; more than any scene a camera sees

} // namespace

CrowdCountingPage::CrowdCountingPage(VyWidget* parent, uint64_t channels)
    : CWidget(parent)
    , m_block(std::make_unique<CountRuleBlock>()) {
    m_channels = new VyComboBox(this);
    for (int ch = 0; ch < CountRuleBlock::kChannels; ++ch)
        if (channels >> ch & 1)
            m_channels->addItem(VyTranslation::tr(TextId::Analytics::ChannelNumber).arg(ch + 1),
                                ch);
    m_shape = new VyComboBox(this);
    m_shape->addItem(VyTranslation::tr(TextId::Analytics::CountLine), CountRule::kLine);
    m_shape->addItem(VyTranslation::tr(TextId::Analytics::CountArea), CountRule::kArea);
    m_limitLabel = new VyLabel(this);
    m_limitLabel->setTextId(TextId::Analytics::Limit);
    m_limit = new VySpinBox(this);
    m_limit->setRange(0, kMaxLimit);
    m_clear = new VyPushButton(VyTranslation::tr(TextId::Analytics::Clear), this);
    m_save = new VyPushButton(VyTranslation::tr(TextId::Analytics::Save), this);
    m_counts = new VyLabel(this);
    m_alarm = new VyLabel(this);
    m_alarm->hide();
    m_editor = new CountingRegionEditor(this);
    for (VyWidget* w : std::initializer_list<VyWidget*>{m_channels, m_shape, m_limitLabel, m_limit,
                                                        m_clear, m_save, m_counts, m_editor})
        w->show();
    VyObject::connect(m_channels, &m_channels->currentIndexChanged, this,
                      VY_SLOT(CrowdCountingPage, channelChosen));
    VyObject::connect(m_shape, &m_shape->currentIndexChanged, this,
                      VY_SLOT(CrowdCountingPage, shapeChosen));
    VyObject::connect(m_limit, &m_limit->valueChanged, this,
                      VY_SLOT(CrowdCountingPage, limitChanged));
    VyObject::connect(m_editor, &m_editor->edited, this, VY_SLOT(CrowdCountingPage, ruleEdited));
    VyObject::connect(m_clear, &m_clear->clicked, this, VY_SLOT(CrowdCountingPage, clearClicked));
    VyObject::connect(m_save, &m_save->clicked, this, VY_SLOT(CrowdCountingPage, save));
    if (AIManager* ai = AIManager::instance())
        VyObject::connect(ai, &ai->countsChanged, this, VY_SLOT(CrowdCountingPage, countsChanged));
    load();
}

CrowdCountingPage::~CrowdCountingPage() = default;

void CrowdCountingPage::load() {
    // The wait for App may run the event loop: nothing of ours is touched after it but
    // through the guard.
    VyPointer<CrowdCountingPage> self(this);
    CountRuleBlock fetched = ParamAccess::get<CountRuleBlock>();
    if (self.isNull())
        return;
    int repaired = 0;
    for (CountRule& r : fetched.rules)
        repaired += r.sanitise() ? 0 : 1;
    if (repaired > 0)
        VY_GUI_LOG("%d crowd counting rules from App were out of range and repaired\n", repaired);
    *m_block = fetched;
    m_channel = -1;
    showChannel(int(m_channels->currentData()));
}

int CrowdCountingPage::channel() const {
    return m_channel;
}

bool CrowdCountingPage::showChannel(int channel) {
    const int index = m_channels->findData(channel);
    if (index < 0 || channel < 0 || channel >= CountRuleBlock::kChannels)
        return false;
    m_channel = channel;
    VyPointer<CrowdCountingPage> self(this);
    const VyBitmap picture = AnalyticsQueries::snapshot(uint32_t(channel));
    if (self.isNull())
        return false;
    m_editor->setPicture(picture);
    // The controls are set from the rule, not the rule from the controls.
    m_showing = true;
    if (m_channels->currentIndex() != index)
        m_channels->setCurrentIndex(index);
    const CountRule r = m_block->rules[channel];
    m_editor->setRule(r);
    m_shape->setCurrentIndex(m_shape->findData(r.shape));
    m_limit->setValue(int(std::min<uint32_t>(r.limit, kMaxLimit)));
    m_showing = false;
    countsChanged();
    return true;
}

void CrowdCountingPage::channelChosen() {
    if (m_showing)
        return;
    const int ch = int(m_channels->currentData());
    if (ch != m_channel)
        showChannel(ch);
}

void CrowdCountingPage::shapeChosen() {
    if (m_showing)
        return;
    m_editor->setShape(uint8_t(m_shape->currentData()));
    keepEdits();
}

void CrowdCountingPage::ruleEdited() {
    keepEdits();
}

void CrowdCountingPage::limitChanged() {
    keepEdits();
}

void CrowdCountingPage::clearClicked() {
    m_editor->clearPoints();
    keepEdits();
}

void CrowdCountingPage::keepEdits() {
    if (m_channel < 0 || m_showing)
        return;
    CountRule r = m_editor->rule();
    r.limit = uint32_t(m_limit->value());
    // A rule counts once it has the points its shape needs.
    r.enabled = r.pointCount >= r.minimumPoints() ? 1 : 0;
    m_block->rules[m_channel] = r;
}

void CrowdCountingPage::save() {
    keepEdits();
    ParamAccess::set(*m_block);
    VY_GUI_LOG("crowd counting rules saved\n");
}

VyString CrowdCountingPage::countsText() const {
    const AIManager* ai = AIManager::instance();
    const CountLiveNotice* n = ai != nullptr ? ai->liveCount(m_channel) : nullptr;
    if (n == nullptr)
        return VyTranslation::tr(TextId::Analytics::NoData);
    return VyTranslation::tr(TextId::Analytics::In) + " " + VyString::number(int64_t(n->in)) +
           "   " + VyTranslation::tr(TextId::Analytics::Out) + " " +
           VyString::number(int64_t(n->out));
}

bool CrowdCountingPage::isOverLimit() const {
    const AIManager* ai = AIManager::instance();
    const CountLiveNotice* n = ai != nullptr ? ai->liveCount(m_channel) : nullptr;
    return n != nullptr && (n->flags & CountLiveNotice::kOverLimit) != 0;
}

void CrowdCountingPage::countsChanged() {
    m_counts->setText(countsText());
    if (isOverLimit())
        m_alarm->setText(VyTranslation::tr(TextId::Analytics::CrowdAlarm).arg(m_channel + 1));
    m_alarm->setVisible(isOverLimit());
}

void CrowdCountingPage::resizeEvent(VyResizeEvent*) {
    const int gap = UiLook::scaledX(kGapDesign);
    const int col = UiLook::scaledX(kColumnDesign);
    const int row = UiLook::scaledY(kRowDesign);
    int y = gap;
    auto place = [&](VyWidget* w) {
        w->setGeometry(gap, y, col, row);
        y += row + gap / 2;
    };
    place(m_channels);
    place(m_shape);
    place(m_limitLabel);
    place(m_limit);
    place(m_clear);
    place(m_save);
    place(m_counts);
    place(m_alarm);
    m_editor->setGeometry(2 * gap + col, gap, width() - 3 * gap - col, height() - 2 * gap);
}
