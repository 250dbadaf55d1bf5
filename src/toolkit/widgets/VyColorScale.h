#pragma once
// The key of a heat map: the heat colours from cold (bottom) to hot (top) with the values
// they stand for at both ends.
#include "runtime/VyString.h"
#include "toolkit/core/VyWidget.h"

class VyColorScale : public VyWidget {
    VY_OBJECT(VyColorScale, VyWidget)
public:
    explicit VyColorScale(VyWidget* parent = nullptr);

    void setLabels(const VyString& high, const VyString& low);
    const VyString& highLabel() const { return m_high; }
    const VyString& lowLabel() const { return m_low; }

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    VyString m_high;
    VyString m_low;
};
