#pragma once
// The base of the layout managers: arranges the children of one widget inside its rectangle
// less the margins. A layout set on a widget watches it (as an event filter) and lays out
// again on LayoutRequest and Resize; layouts nest.
#include "runtime/VyRect.h"
#include "runtime/VySize.h"
#include "toolkit/core/VyLayoutSlot.h"
#include "toolkit/core/VyObject.h"

#include <vector>

class VyWidget;

class VyLayout : public VyObject {
    VY_OBJECT(VyLayout, VyObject)
public:
    // With a parent widget the layout is set on it at once.
    explicit VyLayout(VyWidget* parent = nullptr);
    ~VyLayout() override;

    void setSpacing(int pixels) { m_spacing = pixels < 0 ? 0 : pixels; }
    int spacing() const { return m_spacing; }
    void setContentsMargins(int left, int top, int right, int bottom);
    int marginLeft() const { return m_margins[0]; }
    int marginTop() const { return m_margins[1]; }
    int marginRight() const { return m_margins[2]; }
    int marginBottom() const { return m_margins[3]; }

    // The widget whose children this layout (or the layout it is nested in) manages.
    VyWidget* parentWidget() const;

    // Sizes including the margins.
    virtual VySize sizeHint() const = 0;
    virtual VySize minimumSize() const = 0;
    virtual VySize maximumSize() const = 0;
    // Places the items inside rect (parent widget coordinates, margins included).
    virtual void setGeometry(const VyRect& rect) = 0;
    const VyRect& geometry() const { return m_geometry; }

    // Lays out the parent widget's whole rectangle now.
    void activate();

    bool eventFilter(VyObject* watched, VyEvent* e) override;

    // Called by VyWidget::setLayout.
    void attachTo(VyWidget* widget);
    // Makes every managed widget, nested layouts' included, a child of the parent widget
    // once that is known (also called from the constructor, before any item exists).
    virtual void adoptAll() {}

    // Splits `available` pixels among the slots: preferred sizes first, the surplus by
    // stretch (equally among growable slots when no slot stretches), a shortage taken from
    // what each slot has above its minimum. Never below a minimum nor above a maximum.
    static std::vector<int> distribute(const std::vector<VyLayoutSlot>& slots, int available);

protected:
    // Makes a managed widget a child of the parent widget, when that is known.
    void adoptWidget(VyWidget* widget);
    VyRect contentsRect(const VyRect& rect) const;
    void requestLayout();
    void storeGeometry(const VyRect& rect) { m_geometry = rect; }

    // A widget's limits and preference, with its size limits applied.
    static VySize widgetMinimum(const VyWidget* w);
    static VySize widgetHint(const VyWidget* w);
    static VySize widgetMaximum(const VyWidget* w);

    // A managed item is a widget or, when that is null, a nested layout.
    void adoptItem(VyWidget* widget, VyLayout* layout);
    static VySize itemMinimumOf(const VyWidget* widget, const VyLayout* layout);
    static VySize itemHintOf(const VyWidget* widget, const VyLayout* layout);
    static VySize itemMaximumOf(const VyWidget* widget, const VyLayout* layout);

private:
    VyWidget* m_widget = nullptr;
    int m_spacing = 6;
    int m_margins[4] = {0, 0, 0, 0};
    VyRect m_geometry;
    VySize m_lastHint{-1, -1};
};
