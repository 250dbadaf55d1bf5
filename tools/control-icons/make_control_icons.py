#!/usr/bin/python3
"""Renders the images of the standard controls into resources/images/ from the Material Design
icon font that Debian ships (fonts-material-design-icons-iconfont), once at normal size for
outputs up to 1920x1080 and once at twice the size ("-max") for larger ones.

The colours follow the palette of resources/style/commonstyle.ini, so the images and the
style sheet give one look. Glyphs are addressed by their code points in the font's private
use area (the font's ligature names need a shaping engine that Pillow may lack).
Run: /usr/bin/python3 tools/control-icons/make_control_icons.py [output-dir]
"""
import os
import sys

from PIL import Image, ImageDraw, ImageFont

FONT = "/usr/share/fonts/truetype/material-design-icons-iconfont/MaterialIcons-Regular.ttf"

# Code points of the Material Design icons used here.
CHECK_BOX = "\ue834"
CHECK_BOX_BLANK = "\ue835"
RADIO_CHECKED = "\ue837"
RADIO_UNCHECKED = "\ue836"
RECORD = "\ue061"            # fiber_manual_record: a filled disc
ARROW_UP = "\ue316"          # keyboard_arrow_up
ARROW_DOWN = "\ue313"        # keyboard_arrow_down
DROP_DOWN = "\ue5c5"         # arrow_drop_down
INFO = "\ue88e"              # info
HELP = "\ue887"              # help
WARNING = "\ue002"           # warning
CLOSE = "\ue5cd"             # close
CHEVRON_LEFT = "\ue5cb"      # chevron_left
CHEVRON_RIGHT = "\ue5cc"     # chevron_right
VISIBILITY = "\ue8f4"        # visibility: an eye
CUT = "\ue14e"               # content_cut: scissors
PLAY = "\ue037"              # play_arrow
PAUSE = "\ue034"
STOP = "\ue047"
FAST_REWIND = "\ue020"
FAST_FORWARD = "\ue01f"
SKIP_NEXT = "\ue044"         # frame step
REPLAY_30 = "\ue05a"
FORWARD_30 = "\ue057"
FULLSCREEN = "\ue5d0"
VOLUME_UP = "\ue050"
VOLUME_OFF = "\ue04f"
CAMERA = "\ue412"            # photo_camera
SAVE = "\ue161"              # save: the clip backup
RUN = "\ue566"               # directions_run: motion search
PHOTOS = "\ue413"            # photo_library: picture playback
CAROUSEL = "\ue8eb"          # view_carousel: the thumbnail bar
LOCAL_OFFER = "\ue54e"       # local_offer: tag search and custom tags

# Palette of the common style sheet.
TEXT = (230, 232, 235, 255)
LINE = (110, 116, 126, 255)
HOVER_LINE = (160, 166, 176, 255)
DIMMED = (70, 74, 82, 255)
ACCENT = (0, 150, 220, 255)
ACCENT_LIGHT = (40, 175, 240, 255)
DISABLED_FILL = (60, 63, 69, 255)
WHITE = (255, 255, 255, 255)
WARN = (240, 170, 40, 255)
CLIP = (255, 200, 0, 255)    # the clip marker, as the time bar's cursor

# name -> (size at 1920x1080, [(glyph, colour), ...] drawn over each other)
IMAGES = {
    "checkbox-uncheck": (22, [(CHECK_BOX_BLANK, LINE)]),
    "checkbox-uncheck-hover": (22, [(CHECK_BOX_BLANK, HOVER_LINE)]),
    "checkbox-uncheck-disabled": (22, [(CHECK_BOX_BLANK, DIMMED)]),
    "checkbox-checked": (22, [(CHECK_BOX, ACCENT)]),
    "checkbox-checked-hover": (22, [(CHECK_BOX, ACCENT_LIGHT)]),
    "checkbox-checked-disabled": (22, [(CHECK_BOX, DISABLED_FILL)]),
    "radiobutton-uncheck": (22, [(RADIO_UNCHECKED, LINE)]),
    "radiobutton-uncheck-hover": (22, [(RADIO_UNCHECKED, HOVER_LINE)]),
    "radiobutton-checked": (22, [(RADIO_CHECKED, ACCENT)]),
    "radiobutton-disabled-uncheck": (22, [(RADIO_UNCHECKED, DIMMED)]),
    "radiobutton-disabled-check": (22, [(RADIO_CHECKED, DISABLED_FILL)]),
    "common-up-arrow": (16, [(ARROW_UP, TEXT)]),
    "common-down-arrow": (16, [(ARROW_DOWN, TEXT)]),
    "common-up-arrow-disabled": (16, [(ARROW_UP, DIMMED)]),
    "common-down-arrow-disabled": (16, [(ARROW_DOWN, DIMMED)]),
    "slider-handle": (20, [(RECORD, TEXT)]),
    "slider-handle-hover": (20, [(RECORD, WHITE), (RECORD, ACCENT, 0.5)]),
    "combobox-dropdown": (20, [(DROP_DOWN, TEXT)]),
    "combobox-dropdown-focus": (20, [(DROP_DOWN, ACCENT_LIGHT)]),
    "combobox-dropdown-disabled": (20, [(DROP_DOWN, DIMMED)]),
    "datetimeedit-down-arrow": (20, [(DROP_DOWN, TEXT)]),
    "datetimeedit-down-arrow-focus": (20, [(DROP_DOWN, ACCENT_LIGHT)]),
    "messagebox-information": (48, [(INFO, ACCENT)]),
    "messagebox-question": (48, [(HELP, ACCENT)]),
    "messagebox-warning": (48, [(WARNING, WARN)]),
    "titlebar-close": (20, [(CLOSE, TEXT)]),
    "calendar-previous": (20, [(CHEVRON_LEFT, TEXT)]),
    "calendar-next": (20, [(CHEVRON_RIGHT, TEXT)]),
    # The record time bar: day navigation, the selected row's eye, the clip marker.
    "prev": (24, [(CHEVRON_LEFT, TEXT)]),
    "prev_disable": (24, [(CHEVRON_LEFT, DIMMED)]),
    "next": (24, [(CHEVRON_RIGHT, TEXT)]),
    "next_disable": (24, [(CHEVRON_RIGHT, DIMMED)]),
    "eye": (16, [(VISIBILITY, TEXT)]),
    "cut_top": (16, [(CUT, CLIP)]),
    # The player controls of the playback window.
    "playback-play": (28, [(PLAY, TEXT)]),
    "playback-pause": (28, [(PAUSE, TEXT)]),
    "playback-stop": (28, [(STOP, TEXT)]),
    "playback-slow": (28, [(FAST_REWIND, TEXT)]),
    "playback-fast": (28, [(FAST_FORWARD, TEXT)]),
    "playback-frame": (28, [(SKIP_NEXT, TEXT)]),
    "playback-back30": (28, [(REPLAY_30, TEXT)]),
    "playback-forward30": (28, [(FORWARD_30, TEXT)]),
    "playback-fullscreen": (28, [(FULLSCREEN, TEXT)]),
    "playback-audio": (28, [(VOLUME_UP, TEXT)]),
    "playback-mute": (28, [(VOLUME_OFF, TEXT)]),
    "playback-snapshot": (28, [(CAMERA, TEXT)]),
    "playback-clip": (28, [(CUT, TEXT)]),
    "playback-backup": (28, [(SAVE, TEXT)]),
    "playback-motion": (28, [(RUN, TEXT)]),
    "playback-pictures": (28, [(PHOTOS, TEXT)]),
    "playback-thumbnails": (28, [(CAROUSEL, TEXT)]),
    "playback-tags": (28, [(LOCAL_OFFER, TEXT)]),
}


# The live view's images live in a module of their own.
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import liveview_icons  # noqa: E402

IMAGES.update(liveview_icons.IMAGES)


def render(size, layers):
    """Each layer is (glyph, colour) or (glyph, colour, scale): a glyph scaled about the
    centre, so a smaller disc can sit inside a larger one."""
    image = Image.new("RGBA", (size, size), (0, 0, 0, 0))
    for layer in layers:
        glyph, colour = layer[0], layer[1]
        scale = layer[2] if len(layer) > 2 else 1.0
        px = max(1, round(size * scale))
        font = ImageFont.truetype(FONT, px)
        mask = Image.new("L", (size, size), 0)
        # The icon font draws each glyph on a square em box: centre that box in the image.
        offset = (size - px) // 2
        ImageDraw.Draw(mask).text((offset, offset), glyph, font=font, fill=255,
                                  anchor="la")
        bbox = font.getbbox(glyph, anchor="la")
        if bbox[2] <= bbox[0]:
            sys.exit("glyph U+%04X missing from %s" % (ord(glyph), FONT))
        solid = Image.new("RGBA", (size, size), colour)
        image.alpha_composite(Image.composite(solid, Image.new("RGBA", (size, size)), mask))
    return image


def main():
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(
        os.path.dirname(os.path.abspath(__file__)), "..", "..", "resources", "images")
    os.makedirs(out, exist_ok=True)
    for name, (size, layers) in sorted(IMAGES.items()):
        for suffix, scale in (("", 1), ("-max", 2)):
            path = os.path.join(out, name + suffix + ".png")
            render(size * scale, layers).save(path, optimize=True)
    print("wrote %d images to %s" % (2 * len(IMAGES), os.path.normpath(out)))


if __name__ == "__main__":
    main()
