#pragma once
// Heat maps: where people spent time in one channel's scene over a day or a week, as heat
// colours over App's snapshot of the scene, with the colour scale beside it. Asked of App
// when the page opens and on Search.
#include "runtime/VyDate.h"
#include "toolkit/widgets/CWidget.h"

class VyColorScale;
class VyComboBox;
class VyDateEdit;
class VyHeatMap;
class VyLabel;
class VyPushButton;

class HeatMapPage : public CWidget {
    VY_OBJECT(HeatMapPage, CWidget)
public:
    HeatMapPage(VyWidget* parent, uint64_t channels, const VyDate& day = VyDate::currentDate());

    // Asks App for the chosen channel, span and day; false when nothing could be shown.
    bool search();
    bool setChannel(int channel);
    void setWeek(bool week);
    void setDay(const VyDate& day);

    VyHeatMap* heatMap() const { return m_map; }
    VyColorScale* colorScale() const { return m_scale; }
    bool hasData() const;

protected:
    void resizeEvent(VyResizeEvent* e) override;

private:
    void searchClicked() { search(); }

    VyComboBox* m_channels;
    VyComboBox* m_span;
    VyDateEdit* m_date;
    VyPushButton* m_search;
    VyHeatMap* m_map;
    VyColorScale* m_scale;
    VyLabel* m_empty;
};
