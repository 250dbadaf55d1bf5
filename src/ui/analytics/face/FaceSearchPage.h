#pragma once
// Face search: a face from the library or the face in front of a live camera, a time
// range, the channels and the least similarity; the hits come back as a grid of captured
// faces with their time, channel and similarity, and a hit opens playback at its moment.
#include "model/FaceLibraryModel.h"
#include "model/FaceSearchModel.h"
#include "toolkit/core/VyWidget.h"

#include <cstdint>

class FaceThumbnailGrid;
class VyComboBox;
class VyDateEdit;
class VyLabel;
class VyPushButton;
class VySpinBox;

class FaceSearchPage : public VyWidget {
    VY_OBJECT(FaceSearchPage, VyWidget)
public:
    // Ids of the source box: a library face's id, or this plus a channel for a live face.
    static constexpr long long kLiveSource = 1LL << 32;

    FaceSearchPage(FaceLibraryModel* library, int channelCount, VyWidget* parent = nullptr);
    ~FaceSearchPage() override;

    // The page's name in the analytics window's page list.
    static uint32_t titleTextId();

    // Refills the face box from the library.
    void reload();
    void search();
    // Opens playback at the grid's activated hit.
    void openActivated();

    FaceSearchModel* results() { return &m_results; }
    VyComboBox* sourceBox() const { return m_source; }
    VyComboBox* channelBox() const { return m_channel; }
    VyDateEdit* fromEdit() const { return m_from; }
    VyDateEdit* toEdit() const { return m_to; }
    VySpinBox* similarityBox() const { return m_similarity; }
    FaceThumbnailGrid* grid() const { return m_grid; }
    VyString summary() const;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void picturesIn();
    void showResults();

    FaceLibraryModel* m_library;
    FaceSearchModel m_results;
    int m_channelCount;
    VyComboBox* m_source;       // child
    VyComboBox* m_channel;      // child
    VyLabel* m_fromLabel;       // child
    VyDateEdit* m_from;         // child
    VyLabel* m_toLabel;         // child
    VyDateEdit* m_to;           // child
    VyLabel* m_similarityLabel; // child
    VySpinBox* m_similarity;    // child
    VyPushButton* m_search;     // child
    VyLabel* m_summary;         // child
    FaceThumbnailGrid* m_grid;  // child
    vyargb m_background = 0xFF1E2024;
};
