#include "toolkit/widgets/CWidget.h"

#include "toolkit/events/VyKeyEvent.h"

CWidget::CWidget(VyWidget* parent, int windowType)
    : VyWidget(parent, windowType) {}

bool CWidget::keyLeftRight(int) {
    return false;
}

bool CWidget::keyUpDown(int) {
    return false;
}

bool CWidget::keyActivate() {
    return false;
}

void CWidget::keyPressEvent(VyKeyEvent* e) {
    bool used = false;
    switch (e->key()) {
    case VyKeyEvent::KeyLeft:
    case VyKeyEvent::KeyRight:
        used = keyLeftRight(e->key());
        break;
    case VyKeyEvent::KeyUp:
    case VyKeyEvent::KeyDown:
        used = keyUpDown(e->key());
        break;
    case VyKeyEvent::KeyOk:
        used = keyActivate();
        break;
    default:
        break;
    }
    e->setAccepted(used);
}
