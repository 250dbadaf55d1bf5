#include "ui/analytics/face/FaceSearchPage.h"

#include "model/AttendanceReport.h"
#include "protocol/FacePicture.h"
#include "runtime/VyDate.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCalendarWidget.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyDateEdit.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/ShellActions.h"
#include "ui/analytics/face/FacePageRow.h"
#include "ui/analytics/face/FaceThumbnailGrid.h"

namespace {

constexpr const char* kStyleFile = "style/faceapps.ini";
constexpr long long kEpochJulianDay = 2440588; // 1970-01-01
constexpr int kDefaultDays = 7;                // the range a new search starts with
constexpr int kMaxChannels = 64;               // bits of the channel mask

int64_t secondsOf(const VyDate& date) {
    return (date.toJulianDay() - kEpochJulianDay) * AttendanceReport::kSecondsPerDay;
}

} // namespace

FaceSearchPage::FaceSearchPage(FaceLibraryModel* library, int channelCount, VyWidget* parent)
    : VyWidget(parent)
    , m_library(library)
    , m_channelCount(std::min(channelCount, kMaxChannels))
    , m_source(new VyComboBox(this))
    , m_channel(new VyComboBox(this))
    , m_fromLabel(new VyLabel(this))
    , m_from(new VyDateEdit(this))
    , m_toLabel(new VyLabel(this))
    , m_to(new VyDateEdit(this))
    , m_similarityLabel(new VyLabel(this))
    , m_similarity(new VySpinBox(this))
    , m_search(new VyPushButton(VyTranslation::tr(TextId::Playback::Search), this))
    , m_summary(new VyLabel(this))
    , m_grid(new FaceThumbnailGrid(this)) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    m_background = UiLook::colourOr(ini, "FacePage/Background", m_background);
    m_fromLabel->setTextId(TextId::Analytics::From);
    m_toLabel->setTextId(TextId::Analytics::To);
    m_similarityLabel->setTextId(TextId::Analytics::Similarity);
    m_similarity->setRange(0, 100);
    m_similarity->setSuffix("%");
    m_similarity->setValue(int(FaceSearchModel::Criteria().threshold));
    m_channel->addItem(VyTranslation::tr(TextId::Analytics::AllChannels), -1);
    for (int c = 0; c < m_channelCount; ++c)
        m_channel->addItem(VyTranslation::tr(TextId::Analytics::ChannelNumber).arg(c + 1), c);
    const VyDate today = VyDate::currentDate();
    m_to->setDate(today);
    m_from->setDate(today.addDays(-kDefaultDays));
    m_grid->setTextLines(3);
    m_grid->setSource([this](int i) {
        FaceThumbnailGrid::Cell cell;
        const auto hit = m_results.hit(i);
        if (!hit)
            return cell;
        if (m_library != nullptr)
            cell.picture = m_library->cachedPicture(FacePictureRequest::kCapture, hit->captureId);
        cell.line1 = VyString(
            AttendanceReport::dateText(hit->time / AttendanceReport::kSecondsPerDay).c_str());
        cell.line2 = VyString(AttendanceReport::timeText(hit->time).c_str()) + "  " +
                     VyString::number(int(hit->similarity)) + "%";
        cell.line3 = VyTranslation::tr(TextId::Analytics::ChannelNumber).arg(int(hit->channel) + 1);
        return cell;
    });
    if (m_library != nullptr)
        connect(m_library, &m_library->picturesArrived, this, VY_SLOT(FaceSearchPage, picturesIn));
    connect(m_search, &m_search->clicked, this, VY_SLOT(FaceSearchPage, search));
    connect(m_grid, &m_grid->activated, this, VY_SLOT(FaceSearchPage, openActivated));
    for (VyObject* child : children())
        static_cast<VyWidget*>(child)->show();
    reload();
}

FaceSearchPage::~FaceSearchPage() = default;

uint32_t FaceSearchPage::titleTextId() {
    return TextId::Analytics::FaceSearch;
}

void FaceSearchPage::reload() {
    m_source->clear();
    if (m_library != nullptr) {
        if (!m_library->loaded())
            m_library->refresh();
        for (const FaceLibraryModel::Group& g : m_library->groups()) {
            for (const FaceLibraryModel::Face& f : m_library->faces(g.id))
                m_source->addItem(f.name + " (" + g.name + ")", f.id);
        }
    }
    for (int c = 0; c < m_channelCount; ++c)
        m_source->addItem(VyTranslation::tr(TextId::Analytics::LiveFace).arg(c + 1),
                          kLiveSource + c);
}

void FaceSearchPage::search() {
    if (m_source->currentIndex() < 0)
        return;
    FaceSearchModel::Criteria c;
    const long long source = m_source->currentData();
    c.sourceKind =
        source >= kLiveSource ? FaceSearchRequest::kSnapshot : FaceSearchRequest::kLibraryFace;
    c.sourceId = uint32_t(source >= kLiveSource ? source - kLiveSource : source);
    // Whole days: from the first day's midnight to the end of the last day.
    c.from = secondsOf(m_from->date());
    c.to = secondsOf(m_to->date()) + AttendanceReport::kSecondsPerDay;
    const long long channel = m_channel->currentData();
    c.channelMask =
        channel >= 0
            ? uint64_t(1) << channel
            : (m_channelCount >= kMaxChannels ? ~uint64_t(0) : (uint64_t(1) << m_channelCount) - 1);
    c.threshold = uint32_t(m_similarity->value());
    m_results.search(c);
    showResults();
}

void FaceSearchPage::showResults() {
    m_summary->setText(VyTranslation::tr(TextId::Analytics::Results).arg(m_results.total()));
    m_grid->setFirstRow(0);
    m_grid->setCount(m_results.total());
    m_grid->setCurrentIndex(0);
    m_grid->update();
}

void FaceSearchPage::openActivated() {
    const auto hit = m_results.hit(m_grid->activatedIndex());
    ShellActions* shell = ShellActions::instance();
    if (!hit || shell == nullptr)
        return;
    shell->openPlayback(int(hit->channel), hit->time);
}

VyString FaceSearchPage::summary() const {
    return m_summary->text();
}

void FaceSearchPage::paintEvent(VyPaintEvent*) {
    canvas()->fillRect(rect(), m_background);
}

void FaceSearchPage::resizeEvent(VyResizeEvent*) {
    FacePageRow::place(
        0, {{m_source, 420}, {m_channel, 220}, {m_similarityLabel, 130}, {m_similarity, 130}});
    FacePageRow::place(1, {{m_fromLabel, 80},
                           {m_from, 220},
                           {m_toLabel, 80},
                           {m_to, 220},
                           {m_search, 160},
                           {m_summary, 300}});
    const int top = FacePageRow::top(2);
    m_grid->setGeometry(0, top, width(), std::max(0, height() - top));
}

void FaceSearchPage::picturesIn() {
    m_grid->update();
}
