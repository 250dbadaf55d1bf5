#include "toolkit/widgets/ProxyButton.h"

#include "toolkit/events/VyKeyEvent.h"

ProxyButton::ProxyButton(VyWidget* parent)
    : VyPushButton(parent) {
    connect(this, &clicked, this, VY_SLOT(ProxyButton, onClicked));
}

void ProxyButton::runProxyAction() {
    if (isEnabled())
        emitSignal(this, &proxyAction);
}

void ProxyButton::onClicked() {
    runProxyAction();
}

void ProxyButton::keyPressEvent(VyKeyEvent* e) {
    if (e->key() == VyKeyEvent::KeyOk) {
        e->accept();
        runProxyAction();
        return;
    }
    VyPushButton::keyPressEvent(e);
}
