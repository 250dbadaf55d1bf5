#!/usr/bin/env python3
"""Writes the 34 language files and the text-ID header from the text catalogue.

    tools/i18n/gen_language_files.py           write resources/language/*.xml and TextId.h
    tools/i18n/gen_language_files.py --check   write nothing; fail on any difference or gap

The catalogue (tools/i18n/catalogue.txt) is the one place a text is added; the glossary
(tools/i18n/glossary.txt) fixes the recurring terms per language.
"""
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
CATALOGUE = os.path.join(ROOT, "tools", "i18n", "catalogue.txt")
GLOSSARY = os.path.join(ROOT, "tools", "i18n", "glossary.txt")
LANGUAGE_DIR = os.path.join(ROOT, "resources", "language")
HEADER = os.path.join(ROOT, "src", "toolkit", "i18n", "TextId.h")
SOURCES = os.path.join(ROOT, "src")

# The settings' language table, in its order; the spellings are the file names'.
LANGUAGES = [
    "chinese", "chinese_complex", "czech", "danish", "english", "finnish", "french", "german",
    "greek", "hebrew", "hungarian", "italian", "japanese", "polish", "portuguese", "russian",
    "spanish", "thai", "slovenia", "romanian", "bulgarian", "arabic", "hindi", "vietnam",
    "holland", "turkey", "persion", "svenska", "korean", "indonesia", "brazile", "flemish",
    "ukrainian", "slovak",
]
GLOSSARY_TERMS = ["channel", "recording", "motion", "playback", "alarm", "disk", "settings",
                  "resolution", "wizard"]
PLACEHOLDER = re.compile(r"%([1-9][0-9]*)")
HEADING = re.compile(r"^\[(\d+) ([A-Z][A-Za-z0-9]*) ([A-Z][A-Za-z0-9]*)\]$")


def read_blocks(path, heading):
    """[(heading match, {key: value}, line)] from a file of [heading] + key = value blocks."""
    blocks, errors = [], []
    current = None
    with open(path, encoding="utf-8") as f:
        for n, raw in enumerate(f, 1):
            line = raw.rstrip("\n")
            if not line.strip() or line.lstrip().startswith("#"):
                continue
            if line.startswith("["):
                m = heading.match(line)
                if not m:
                    errors.append(f"{path}:{n}: bad heading {line!r}")
                    current = None
                    continue
                current = (m, {}, n)
                blocks.append(current)
                continue
            if current is None or "=" not in line:
                errors.append(f"{path}:{n}: line outside a block or without '='")
                continue
            key, value = line.split("=", 1)
            key = key.strip()
            if key in current[1]:
                errors.append(f"{path}:{n}: {key} given twice")
            current[1][key] = value.strip()
    return blocks, errors


def load_catalogue():
    blocks, errors = read_blocks(CATALOGUE, HEADING)
    texts, seen = [], {}
    for m, values, line in blocks:
        tid, screen, name = int(m.group(1)), m.group(2), m.group(3)
        where = f"{CATALOGUE}:{line}"
        if tid in seen:
            errors.append(f"{where}: id {tid} also at line {seen[tid]}")
        seen[tid] = line
        awaiting = values.pop("awaiting", None)
        missing = [lang for lang in LANGUAGES if lang not in values]
        unknown = [k for k in values if k not in LANGUAGES]
        if missing:
            errors.append(f"{where}: {tid} lacks {', '.join(missing)}")
        if unknown:
            errors.append(f"{where}: {tid} has unknown languages {', '.join(unknown)}")
        english = sorted(PLACEHOLDER.findall(values.get("english", "")))
        for lang, text in values.items():
            if not text:
                errors.append(f"{where}: {tid} is empty in {lang}")
            if sorted(PLACEHOLDER.findall(text)) != english:
                errors.append(f"{where}: {tid} placeholders in {lang} differ from English")
        texts.append((tid, screen, name, values, awaiting))
    texts.sort(key=lambda t: t[0])
    return texts, errors


def check_glossary():
    blocks, errors = read_blocks(GLOSSARY, re.compile(r"^\[([a-z_]+)\]$"))
    found = {m.group(1): (values, line) for m, values, line in blocks}
    for lang in LANGUAGES:
        if lang not in found:
            errors.append(f"{GLOSSARY}: no glossary for {lang}")
            continue
        values, line = found[lang]
        missing = [t for t in GLOSSARY_TERMS if not values.get(t)]
        if missing:
            errors.append(f"{GLOSSARY}:{line}: {lang} lacks {', '.join(missing)}")
    return errors


def xml_escape(text):
    return (text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")
            .replace('"', "&quot;"))


def language_file(lang, texts):
    out = ['<?xml version="1.0" encoding="UTF-8"?>',
           "<!-- Written by tools/i18n/gen_language_files.py from tools/i18n/catalogue.txt;"
           " edit the catalogue, not this file. -->",
           f'<TS language="{lang}">']
    for tid, _, _, values, _ in texts:
        out.append(f'  <tr id="{tid}" text="{xml_escape(values[lang])}"/>')
    out.append("</TS>")
    return "\n".join(out) + "\n"


def header(texts):
    out = ["#pragma once",
           "// Text IDs of the catalogue, by screen. Written by tools/i18n/gen_language_files.py",
           "// from tools/i18n/catalogue.txt (which also documents the ID range of each screen):",
           "// add or change a text there and run the script, never here.",
           "#include <cstdint>",
           "",
           "// clang-format off: the script writes this file, the check compares it byte for byte.",
           "namespace TextId {"]
    screens = []
    for _, screen, _, _, _ in texts:
        if screen not in screens:
            screens.append(screen)
    for screen in screens:
        out.append(f"namespace {screen} {{")
        for tid, s, name, values, _ in texts:
            if s == screen:
                english = values.get("english", "").replace("\\", "\\\\")
                out.append(f"constexpr uint32_t {name} = {tid}; // {english}")
        out.append(f"}} // namespace {screen}")
    out.append("")
    out.append("// Every ID above, ascending: what each shipped language file must hold, and no more.")
    out.append("constexpr uint32_t kAll[] = {")
    for tid, screen, name, _, _ in texts:
        out.append(f"    {screen}::{name},")
    out.append("};")
    out.append("} // namespace TextId")
    out.append("// clang-format on")
    return "\n".join(out) + "\n"


def unused_constants(texts):
    """Constants that no source file under src/ names (the generated header aside)."""
    corpus = []
    for d, _, files in os.walk(SOURCES):
        for f in files:
            p = os.path.join(d, f)
            if f.endswith((".h", ".cpp")) and os.path.abspath(p) != os.path.abspath(HEADER):
                with open(p, encoding="utf-8", errors="replace") as fh:
                    corpus.append(fh.read())
    text = "\n".join(corpus)
    return [f"TextId::{s}::{n}" for _, s, n, _, awaiting in texts
            if not awaiting and not re.search(rf"\b{s}::{n}\b", text)]


def main():
    check = "--check" in sys.argv[1:]
    texts, errors = load_catalogue()
    errors += check_glossary()
    unused = [f"{c} is used nowhere under src/" for c in unused_constants(texts)]
    if check:
        errors += unused
    elif unused:
        print("\n".join(unused), file=sys.stderr)
    wanted = {os.path.join(LANGUAGE_DIR, f"tran_{lang}.xml"): language_file(lang, texts)
              for lang in LANGUAGES}
    wanted[HEADER] = header(texts)
    if errors:
        print("\n".join(errors), file=sys.stderr)
        return 1
    stale = []
    for path, content in wanted.items():
        current = None
        if os.path.exists(path):
            with open(path, encoding="utf-8") as f:
                current = f.read()
        if current == content:
            continue
        if check:
            stale.append(os.path.relpath(path, ROOT))
        else:
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "w", encoding="utf-8") as f:
                f.write(content)
    extra = [f for f in os.listdir(LANGUAGE_DIR)
             if f.endswith(".xml") and os.path.join(LANGUAGE_DIR, f) not in wanted] \
        if os.path.isdir(LANGUAGE_DIR) else []
    if stale or extra:
        for p in stale:
            print(f"{p} differs from the catalogue: run tools/i18n/gen_language_files.py",
                  file=sys.stderr)
        for f in extra:
            print(f"resources/language/{f} is not a language of the table", file=sys.stderr)
        return 1
    print(f"{len(texts)} texts in {len(LANGUAGES)} languages")
    return 0


if __name__ == "__main__":
    sys.exit(main())
