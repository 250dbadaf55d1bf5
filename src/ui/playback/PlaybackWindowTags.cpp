// The playback window's tag search, custom tags and thumbnail bar.
#include "ui/playback/PlaybackWindow.h"

#include "runtime/VyLog.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/playback/PlaybackScreen.h"
#include "ui/playback/PlaybackSearchPanel.h"
#include "ui/playback/PlaybackSplit.h"
#include "ui/playback/RecordTimeBar.h"
#include "ui/playback/TagSearchPanel.h"
#include "ui/playback/ThumbnailBar.h"

#include <algorithm>

int PlaybackWindow::selectedChannel() const {
    const int row = m_timeBar->selectedRow();
    const auto& channels = m_timeBar->channels();
    return row >= 0 && row < int(channels.size()) ? channels[size_t(row)].channel : -1;
}

void PlaybackWindow::playChannelAt(int channel, const VyDateTime& time) {
    if (!time.isValid() || channel < 0)
        return;
    const std::vector<int>& shown = m_screen->channels();
    const bool inSplit = std::find(shown.begin(), shown.end(), channel) != shown.end();
    if (!inSplit || time.date() != m_panel->date()) {
        for (int c = 0; c < PlaybackSearchPanel::kMaxChannels; ++c)
            m_panel->setChannelChecked(c, c == channel);
        m_panel->setDate(time.date());
        search();
    }
    m_timeBar->selectChannel(channel);
    m_timeBar->setCursorTime(time);
    if (m_session->isPlaying() && inSplit && time.date() == m_session->playbackTime().date() &&
        m_session->seek(time))
        m_screen->setTime(time);
    else
        playFrom(time);
}

void PlaybackWindow::onTagSearch() {
    const VyDate day = m_panel->date();
    m_session->searchTags(VyDateTime(day, m_tags->from()), VyDateTime(day, m_tags->to()),
                          m_tags->keyword(), m_tags->checkedChannels());
}

void PlaybackWindow::onTagsFound() {
    m_tags->setTags(m_session->tags());
}

void PlaybackWindow::onTagChosen() {
    if (const RecordTag* tag = m_tags->chosenTag())
        playChannelAt(tag->channel, tag->time);
}

void PlaybackWindow::onAddTag() {
    // The tag marks what the user is watching: the selected cell's channel at the playback
    // time, or the cursor's time when nothing plays.
    int channel = -1;
    const int cell = m_screen->selectedCell();
    const std::vector<int>& channels = m_screen->channels();
    if (cell >= 0 && cell < int(channels.size()))
        channel = channels[size_t(cell)];
    if (channel < 0)
        channel = selectedChannel();
    const VyDateTime at = m_session->isPlaying() && m_session->playbackTime().isValid()
                              ? m_session->playbackTime()
                              : m_timeBar->cursorTime();
    std::string name = m_tags->keyword();
    if (name.empty())
        name = VyTranslation::tr(TextId::Playback::DefaultTagName).c_str();
    if (channel < 0 || !m_session->addTag(channel, at, name))
        return;
    // The list shows the new tag when it falls inside what was searched.
    if (!m_tags->tags().empty() || m_tags->isNoTagsShown())
        onTagSearch();
}

void PlaybackWindow::refreshThumbnails() {
    if (!m_controls[Thumbnails]->isChecked() || m_fullScreen)
        return;
    const int channel = selectedChannel();
    if (channel < 0) {
        m_thumbnailBar->setThumbnails({});
        return;
    }
    const int count = m_thumbnailBar->slotCount();
    const VyDateTime from =
        m_timeBar->viewOrigin().isValid() ? m_timeBar->viewOrigin() : m_timeBar->rangeStart();
    VyDateTime to = from.addSecs(m_timeBar->span());
    if (m_timeBar->rangeEnd().isValid() && to > m_timeBar->rangeEnd())
        to = m_timeBar->rangeEnd();
    // Each slot shows the start of its share of the span, so the last ends one step short.
    const VyDateTime last = from.addSecs(from.secsTo(to) * (count - 1) / std::max(1, count));
    m_session->requestThumbnails(channel, from, last, count);
}

void PlaybackWindow::onThumbnailsArrived() {
    m_thumbnailBar->setThumbnails(m_session->thumbnails());
}

void PlaybackWindow::onThumbnailChosen() {
    const VyDateTime t = m_thumbnailBar->chosenTime();
    const int channel = m_session->thumbnailChannel();
    if (t.isValid() && channel >= 0)
        playChannelAt(channel, t);
}
