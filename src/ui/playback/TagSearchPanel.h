#pragma once
// The tag search beside the playback video, in place of the search panel: a keyword, a time
// range on the searched day and the channels, the tags found in a list (OK or a double
// click plays from the tag), and a button that adds a custom tag at the playback time.
#include "model/RecordTag.h"
#include "runtime/VyTime.h"
#include "toolkit/core/VyWidget.h"

#include <string>
#include <vector>

class VyCheckBox;
class VyLabel;
class VyLineEdit;
class VyListWidget;
class VyPushButton;
class VyTimeEdit;

class TagSearchPanel : public VyWidget {
    VY_OBJECT(TagSearchPanel, VyWidget)
public:
    static constexpr const char* kStyleFile = "style/playbacksearchpanel.ini";
    static constexpr int kMaxChannels = 16;

    TagSearchPanel(int deviceChannels, VyWidget* parent = nullptr);

    // The keyword as UTF-8; empty finds every tag.
    std::string keyword() const;
    VyTime from() const;
    VyTime to() const;
    std::vector<int> checkedChannels() const;
    void setChannelChecked(int channel, bool on);

    void setTags(const std::vector<RecordTag>& tags);
    const std::vector<RecordTag>& tags() const { return m_tags; }
    // The tag last chosen in the list; null when none is.
    const RecordTag* chosenTag() const;

    VyLineEdit* keywordEdit() const { return m_keyword; }
    VyTimeEdit* fromEdit() const { return m_from; }
    VyTimeEdit* toEdit() const { return m_to; }
    VyPushButton* searchButton() const { return m_search; }
    VyPushButton* addButton() const { return m_add; }
    VyListWidget* resultList() const { return m_list; }
    bool isNoTagsShown() const;

    VySignal searchRequested;
    VySignal addRequested; // a custom tag at the playback time, named keyword()
    VySignal tagChosen;    // chosenTag()

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void retranslate();
    void onSearchClicked();
    void onAddClicked();
    void onActivated();

    VyLabel* m_title = nullptr;
    VyLabel* m_keywordLabel = nullptr;
    VyLineEdit* m_keyword = nullptr;
    VyLabel* m_fromLabel = nullptr;
    VyTimeEdit* m_from = nullptr;
    VyLabel* m_toLabel = nullptr;
    VyTimeEdit* m_to = nullptr;
    std::vector<VyCheckBox*> m_channels;
    VyPushButton* m_search = nullptr;
    VyPushButton* m_add = nullptr;
    VyListWidget* m_list = nullptr;
    VyLabel* m_noTags = nullptr;
    std::vector<RecordTag> m_tags;
    int m_chosen = -1;
    vyargb m_background = 0xFF202226;
    vyargb m_border = 0xFF3C3F45;
};
