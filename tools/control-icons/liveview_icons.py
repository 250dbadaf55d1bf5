"""The live view's images: cell flags and icons, the task bar, the video tool bar and the
start menu, drawn from the same icon font as the controls' images (make_control_icons.py
imports IMAGES from here). Buttons of the task and tool bars get a "-hover" variant in the
accent colour."""

def g(cp):
    return chr(int(cp, 16))

TEXT = (230, 232, 235, 255)
DIM = (150, 156, 166, 255)
ACCENT = (0, 150, 220, 255)
ACCENT_LIGHT = (40, 175, 240, 255)
RED = (230, 40, 40, 255)
ORANGE = (255, 150, 0, 255)
YELLOW = (250, 210, 40, 255)
GREEN = (40, 200, 110, 255)
PURPLE = (170, 110, 240, 255)
PINK = (240, 90, 160, 255)
GREY = (110, 116, 126, 255)

DISC = g("e061")

# Cell decorations: no hover.
CELL = {
    "recording": (24, [(DISC, RED, 0.8)]),
    "motion-alarm": (24, [(g("e566"), ORANGE)]),
    "io-alarm": (24, [(g("e8c0"), YELLOW)]),
    "pir-alarm": (24, [(g("e51e"), PINK)]),
    "intelligent-alarm": (24, [(g("ea4a"), PURPLE)]),
    "intelligent-alarm-re": (24, [(g("e87c"), PURPLE)]),
    "mainview-startpreview": (48, [(g("e04c"), GREY)]),
    "edit-camera": (28, [(g("e3c9"), TEXT)]),
    "add-camera": (28, [(g("e147"), ACCENT)]),
    "pairing2": (28, [(g("e157"), TEXT)]),
    "channel-drag": (48, [(g("e04b"), ACCENT_LIGHT)]),
    "toolbar-indicator": (16, [(g("e5c5"), TEXT)]),
}

# Task bar buttons (32 px) and status icons, each with a hover image.
TASK_BAR = {
    "start": [(g("e5d2"), TEXT)],
    "layout-4": [(g("e9b0"), TEXT)],
    "layout-9": [(g("e5c3"), TEXT)],
    "layout-16": [(g("e42a"), TEXT)],
    "more-layout": [(g("e871"), TEXT)],
    "sequence": [(g("e040"), TEXT)],
    "mainview-streamswtich": [(g("e052"), TEXT)],
    "mainview-previewpolicy": [(g("e429"), TEXT)],
    "pairing": [(g("e157"), TEXT)],
    "manual": [(g("e887"), TEXT)],
    "info": [(g("e88e"), TEXT)],
    "usb-stick": [(g("e1e0"), GREEN)],
    "connect-ok": [(g("e63e"), GREEN)],
    "connect-disable": [(g("e1da"), GREY)],
    "connect-fail": [(g("e16f"), RED)],
    "light_off": [(g("e90f"), DIM)],
    "light_on": [(g("e0f0"), YELLOW)],
    "mainview-open-wizard": [(g("e663"), TEXT)],
}

# Tool bar buttons (24 px), each with a hover image; "pairing3" and "alarm" serve both bars.
TOOL_BAR = {
    "record": [(DISC, TEXT, 0.7)],
    "record-on": [(DISC, RED, 0.7)],
    "snap": [(g("e412"), TEXT)],
    "playback": [(g("e889"), TEXT)],
    "ptz": [(g("e074"), TEXT)],
    "zoom": [(g("e8ff"), TEXT)],
    "color": [(g("e40a"), TEXT)],
    "hd": [(g("e052"), TEXT)],
    "sd": [(g("e9dd"), TEXT)],
    "fisheye": [(g("e40c"), TEXT)],
    "binocular": [(g("e417"), TEXT)],
    "pairing3": [(g("e157"), TEXT)],
    "close": [(g("e5cd"), TEXT)],
    "light": [(g("e0f0"), TEXT)],
    "speaker": [(g("e32d"), TEXT)],
    "talkback": [(g("e029"), TEXT)],
    "talkback-on": [(g("e029"), RED)],
    "custom-tag": [(g("e54e"), TEXT)],
    "ai-statistics": [(g("e26b"), TEXT)],
    "volume": [(g("e050"), TEXT)],
    "mute": [(g("e04f"), TEXT)],
    "alarm": [(g("e7f7"), ORANGE)],
}

# Start menu entries (24 px).
START_MENU = {
    "admin": [(g("e8d3"), TEXT)],
    "user": [(g("e7fd"), TEXT)],
    "search": [(g("e8b6"), TEXT)],
    "backup": [(g("e864"), TEXT)],
    "settings": [(g("e8b8"), TEXT)],
    "locked": [(g("e897"), TEXT)],
    "unlocked": [(g("e898"), TEXT)],
    "shutdown": [(g("e8ac"), RED)],
}


def hover(layers):
    """The same glyphs in the accent colour (coloured status icons only lighten)."""
    out = []
    for layer in layers:
        colour = ACCENT_LIGHT if layer[1] in (TEXT, DIM) else layer[1]
        out.append((layer[0], colour) + tuple(layer[2:]))
    return out


def images():
    out = dict(CELL)
    for table, size in ((TASK_BAR, 32), (TOOL_BAR, 24)):
        for name, layers in table.items():
            out[name] = (size, layers)
            out[name + "-hover"] = (size, hover(layers))
    out["usb"] = (32, [(g("e1e0"), TEXT)])
    out["usb_hover"] = (32, hover([(g("e1e0"), TEXT)]))
    for name, layers in START_MENU.items():
        out[name] = (24, layers)
    return out


IMAGES = images()
