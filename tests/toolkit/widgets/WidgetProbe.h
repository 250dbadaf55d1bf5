#pragma once
// A widget that records the events reaching its handlers, for the widget tests.
#include "toolkit/core/CoreTestApp.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyFocusEvent.h"
#include "toolkit/events/VyHoverEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"

#include <string>
#include <vector>

class Probe : public VyWidget {
    VY_OBJECT(Probe, VyWidget)
public:
    Probe(const char* name, std::vector<std::string>* log, VyWidget* parent = nullptr,
          int windowType = Widget)
        : VyWidget(parent, windowType)
        , m_log(log) {
        setObjectName(name);
    }
    // A top-level probe with its geometry.
    Probe(const char* name, std::vector<std::string>* log, const VyRect& geometry)
        : Probe(name, log) {
        setGeometry(geometry);
    }

    void paintEvent(VyPaintEvent* e) override {
        ++paints;
        paintRegion = e->region();
        if (fill)
            canvas()->fillRect(rect(), fill);
    }
    void mousePressEvent(VyMouseEvent* e) override { mouse("press", e); }
    void mouseReleaseEvent(VyMouseEvent* e) override { mouse("release", e); }
    void mouseMoveEvent(VyMouseEvent* e) override { mouse("move", e); }
    void mouseDoubleClickEvent(VyMouseEvent* e) override { mouse("double", e); }
    void enterEvent(VyEvent*) override { note("enter"); }
    void leaveEvent(VyEvent*) override { note("leave"); }
    void hoverEnterEvent(VyHoverEvent*) override { note("hoverEnter"); }
    void hoverLeaveEvent(VyHoverEvent*) override { note("hoverLeave"); }
    void focusInEvent(VyFocusEvent* e) override { note("focusIn" + std::to_string(e->reason())); }
    void focusOutEvent(VyFocusEvent* e) override { note("focusOut" + std::to_string(e->reason())); }
    void resizeEvent(VyResizeEvent*) override { note("resize"); }
    void showEvent(VyShowEvent*) override { note("show"); }

    bool acceptMouse = true;
    bool deleteOnPress = false;
    vyargb fill = 0;
    int paints = 0;
    VyRegion paintRegion;
    VyPoint lastPos{-1000, -1000};

private:
    void note(const std::string& what) {
        if (m_log)
            m_log->push_back(std::string(objectName().c_str()) + ":" + what);
    }
    void mouse(const char* what, VyMouseEvent* e) {
        lastPos = e->pos();
        note(std::string(what) + "@" + std::to_string(e->x()) + "," + std::to_string(e->y()));
        if (acceptMouse)
            e->accept();
        if (deleteOnPress && e->type() == VyEvent::MouseButtonPress)
            delete this;
    }

    std::vector<std::string>* m_log;
};

// A probe placed in its parent at once.
inline Probe* childProbe(const char* name, std::vector<std::string>* log, VyWidget* parent,
                         const VyRect& geometry) {
    auto* probe = new Probe(name, log, parent);
    probe->setGeometry(geometry);
    return probe;
}

// Drives the raw mouse path as the mouse reader would, and runs the resulting events.
inline void pointer(VyApplication* app, int x, int y, uint8_t buttons = 0) {
    VyApplication::injectPointer(x, y, buttons, 0);
    app->processPostedEvents();
}

inline void click(VyApplication* app, int x, int y) {
    pointer(app, x, y, VyMouseEvent::LeftButton);
    pointer(app, x, y, 0);
}
