#include "ui/playback/TagSearchPanel.h"

#include "protocol/PlaybackTag.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyListWidget.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VyTimeEdit.h"
#include "ui/UiLook.h"

#include <algorithm>

namespace {

constexpr int kPadDesign = 12;
constexpr int kRowDesign = 34;
constexpr int kLabelDesign = 140;      // the column of the field names
constexpr int kButtonExtraDesign = 10; // buttons stand taller than the fields

} // namespace

TagSearchPanel::TagSearchPanel(int deviceChannels, VyWidget* parent)
    : VyWidget(parent) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    const VyString s = className() + "/";
    m_background = UiLook::colourOr(ini, s + "Background", m_background);
    m_border = UiLook::colourOr(ini, s + "Border", m_border);

    m_title = new VyLabel(this);
    m_keywordLabel = new VyLabel(this);
    m_keyword = new VyLineEdit(this);
    // The keyword and a tag's name share the wire's field; one byte ends the text.
    m_keyword->setMaxLength(int(PlaybackTag::kNameBytes) - 1);
    m_fromLabel = new VyLabel(this);
    m_from = new VyTimeEdit(this);
    m_from->setTime(VyTime(0, 0, 0));
    m_toLabel = new VyLabel(this);
    m_to = new VyTimeEdit(this);
    m_to->setTime(VyTime(23, 59, 59));
    const int count = std::max(0, std::min(deviceChannels, kMaxChannels));
    for (int c = 0; c < count; ++c) {
        auto* box = new VyCheckBox(VyString::number(c + 1), this);
        box->setChecked(true);
        m_channels.push_back(box);
    }
    m_search = new VyPushButton(this);
    connect(m_search, &m_search->clicked, this, VY_SLOT(TagSearchPanel, onSearchClicked));
    m_add = new VyPushButton(this);
    connect(m_add, &m_add->clicked, this, VY_SLOT(TagSearchPanel, onAddClicked));
    m_list = new VyListWidget(this);
    connect(m_list, &m_list->activated, this, VY_SLOT(TagSearchPanel, onActivated));
    m_noTags = new VyLabel(this);
    m_noTags->setAlignment(VyCanvas::AlignCenter);
    for (VyObject* child : children()) {
        if (auto* w = dynamic_cast<VyWidget*>(child); w != nullptr && w != m_noTags)
            w->show();
    }
    retranslate();
    VyTranslation* tr = VyTranslation::instance();
    connect(tr, &tr->languageChanged, this, VY_SLOT(TagSearchPanel, retranslate));
}

void TagSearchPanel::retranslate() {
    m_title->setText(VyTranslation::tr(TextId::Playback::TagSearch));
    m_keywordLabel->setText(VyTranslation::tr(TextId::Playback::Keyword));
    m_fromLabel->setText(VyTranslation::tr(TextId::Playback::From));
    m_toLabel->setText(VyTranslation::tr(TextId::Playback::To));
    m_search->setText(VyTranslation::tr(TextId::Playback::Search));
    m_add->setText(VyTranslation::tr(TextId::Playback::AddTag));
    m_noTags->setText(VyTranslation::tr(TextId::Playback::NoTags));
}

std::string TagSearchPanel::keyword() const {
    return m_keyword->text().c_str();
}

VyTime TagSearchPanel::from() const {
    return m_from->time();
}

VyTime TagSearchPanel::to() const {
    return m_to->time();
}

std::vector<int> TagSearchPanel::checkedChannels() const {
    std::vector<int> out;
    for (size_t c = 0; c < m_channels.size(); ++c) {
        if (m_channels[c]->isChecked())
            out.push_back(int(c));
    }
    return out;
}

void TagSearchPanel::setChannelChecked(int channel, bool on) {
    if (channel >= 0 && channel < int(m_channels.size()))
        m_channels[size_t(channel)]->setChecked(on);
}

void TagSearchPanel::setTags(const std::vector<RecordTag>& tags) {
    m_tags = tags;
    std::stable_sort(m_tags.begin(), m_tags.end(),
                     [](const RecordTag& a, const RecordTag& b) { return a.time < b.time; });
    m_chosen = -1;
    m_list->clear();
    for (const RecordTag& t : m_tags) {
        m_list->addItem(VyString("[") + VyString::number(t.channel + 1) + "] " +
                        t.time.toString("hh:mm:ss") + "  " + VyString(t.name.c_str()));
    }
    m_noTags->setVisible(m_tags.empty());
}

const RecordTag* TagSearchPanel::chosenTag() const {
    return m_chosen >= 0 && m_chosen < int(m_tags.size()) ? &m_tags[size_t(m_chosen)] : nullptr;
}

bool TagSearchPanel::isNoTagsShown() const {
    return m_noTags->isVisible();
}

void TagSearchPanel::onSearchClicked() {
    emitSignal(this, &searchRequested);
}

void TagSearchPanel::onAddClicked() {
    emitSignal(this, &addRequested);
}

void TagSearchPanel::onActivated() {
    m_chosen = m_list->currentRow();
    if (chosenTag() != nullptr)
        emitSignal(this, &tagChosen);
}

void TagSearchPanel::resizeEvent(VyResizeEvent*) {
    const int pad = UiLook::scaledX(kPadDesign);
    const int row = UiLook::scaledY(kRowDesign);
    const int label = UiLook::scaledX(kLabelDesign);
    const int inner = width() - 2 * pad;
    int y = pad;
    m_title->setGeometry(pad, y, inner, row);
    y += row + pad / 2;
    const std::pair<VyLabel*, VyWidget*> fields[] = {
        {m_keywordLabel, m_keyword}, {m_fromLabel, m_from}, {m_toLabel, m_to}};
    for (const auto& f : fields) {
        f.first->setGeometry(pad, y, label, row);
        f.second->setGeometry(pad + label, y, inner - label, row);
        y += row + pad / 2;
    }
    const int columnWidth = inner / 4;
    for (size_t c = 0; c < m_channels.size(); ++c)
        m_channels[c]->setGeometry(pad + int(c % 4) * columnWidth, y + int(c / 4) * row,
                                   columnWidth, row);
    y += int((m_channels.size() + 3) / 4) * row + pad;
    // One a row: "Add tag" is long in several languages.
    const int button = row + UiLook::scaledY(kButtonExtraDesign);
    m_search->setGeometry(pad, y, inner, button);
    y += button + pad / 2;
    m_add->setGeometry(pad, y, inner, button);
    y += button + pad;
    m_list->setGeometry(pad, y, inner, std::max(0, height() - y - pad));
    m_noTags->setGeometry(pad, y, inner, row);
}

void TagSearchPanel::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    c->fillRect(rect(), m_background);
    c->drawRect(rect(), m_border);
}
