#pragma once
// A button that stands for an action of another object: OK from the remote runs the proxy
// action at once, without the press animation an ordinary button shows. A click with the
// mouse runs it too.
#include "toolkit/widgets/VyPushButton.h"

class ProxyButton : public VyPushButton {
    VY_OBJECT(ProxyButton, VyPushButton)
public:
    explicit ProxyButton(VyWidget* parent = nullptr);

    // Emitted by runProxyAction.
    VySignal proxyAction;
    void runProxyAction();

protected:
    void keyPressEvent(VyKeyEvent* e) override;

private:
    void onClicked();
};
