#include "toolkit/widgets/VyGroupBox.h"

#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/VyControlState.h"

VyGroupBox::VyGroupBox(VyWidget* parent)
    : VyWidget(parent) {}

VyGroupBox::VyGroupBox(const VyString& title, VyWidget* parent)
    : VyGroupBox(parent) {
    setTitle(title);
}

void VyGroupBox::setTitle(const VyString& title) {
    m_title = title;
    update();
}

void VyGroupBox::setCheckable(bool checkable) {
    if (m_checkable == checkable)
        return;
    m_checkable = checkable;
    // Only a checkable group box takes part in the key navigation.
    setFocusPolicy(checkable ? StrongFocus : NoFocus);
    if (!checkable)
        setChecked(true);
    applyCheckedToChildren();
    update();
}

void VyGroupBox::setChecked(bool checked) {
    if (m_checked == checked || (!m_checkable && !checked))
        return;
    m_checked = checked;
    applyCheckedToChildren();
    update();
    emitSignal(this, &toggled);
}

void VyGroupBox::applyCheckedToChildren() {
    for (VyObject* o : children())
        if (o->isWidgetType())
            static_cast<VyWidget*>(o)->setEnabled(!m_checkable || m_checked);
}

int VyGroupBox::titleHeight() const {
    return VyStyle::instance()->groupBoxTitleHeight(m_checkable);
}

VyRect VyGroupBox::contentsRect() const {
    const int pad = VyStyle::instance()->scaled(VyStyle::kFieldPaddingDesign);
    return VyRect::fromEdges(pad, titleHeight() + pad / 2, width() - 1 - pad, height() - 1 - pad);
}

int VyGroupBox::styleSlot() const {
    return vyControlStyleSlot(this, m_hovered);
}

void VyGroupBox::paintEvent(VyPaintEvent*) {
    VyStyle::instance()->drawGroupBox(canvas(), rect(), styleSlot(), m_title, m_checkable,
                                      m_checked);
}

void VyGroupBox::mousePressEvent(VyMouseEvent* e) {
    if (m_checkable && isEnabled() && e->button() == VyMouseEvent::LeftButton &&
        e->y() < titleHeight()) {
        e->accept();
        setChecked(!m_checked);
        return;
    }
    e->ignore();
}

void VyGroupBox::keyPressEvent(VyKeyEvent* e) {
    if (m_checkable && e->key() == VyKeyEvent::KeyOk) {
        e->accept();
        setChecked(!m_checked);
        return;
    }
    e->ignore();
}

void VyGroupBox::hoverEnterEvent(VyHoverEvent*) {
    m_hovered = true;
    update();
}

void VyGroupBox::hoverLeaveEvent(VyHoverEvent*) {
    m_hovered = false;
    update();
}

void VyGroupBox::focusInEvent(VyFocusEvent*) {
    update();
}

void VyGroupBox::focusOutEvent(VyFocusEvent*) {
    update();
}
