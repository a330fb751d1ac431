#!/usr/bin/env python3
"""Makes a template of every definition of KDE's, and colours a sample with it.

The package keeps them compressed inside its library; they are taken out here. What they say comes from Python's own
reader of XML: the words of the lists that the first context names, the marks for commenting out, and the quotes that
lead from the first context into a string.
"""

import glob
import pathlib
import re
import sys
import tempfile
import xml.etree.ElementTree
import zlib

import colours

LIBRARY = "/usr/lib/*/libKF5SyntaxHighlighting.so.5"
NOT_COLOURED = {"dsNormal", "dsError", "dsAlert", "dsWarning", "dsInformation", "dsRegionMarker", "dsComment", "dsDocumentation",
                "dsCommentVar", "dsString", "dsChar", "dsSpecialChar", "dsVerbatimString", "dsSpecialString"}


def file_of(name):
    return re.sub(r"[^a-z0-9_-]", "", name.lower().replace("+", "p")) + ".xml"


def take_out(folder):
    """Writes the definitions, under names such as KDE gives their files."""
    data = pathlib.Path(glob.glob(LIBRARY)[0]).read_bytes()
    for start in re.finditer(rb"\x78[\x01\x5e\x9c\xda]", data):
        try:
            text = zlib.decompressobj().decompress(data[start.start():])
        except zlib.error:
            continue
        name = re.search(rb"<language[^>]*?\bname\s*=\s*[\"']([^\"']*)[\"']", text, re.S)
        if name:
            (folder / file_of(name.group(1).decode())).write_bytes(text)


def spellings_of(root):
    """By folded word how it is spelled: twins in letter case are one key of a template, wherever they stand."""
    spellings = {}
    for word in [item.text or "" for item in root.iter("item")] + [rule.get("String", "") for rule in root.iter()]:
        spellings.setdefault(word.strip().lower(), set()).add(word.strip())
    return spellings


def facts_of(file):
    root = xml.etree.ElementTree.fromstring(file.read_bytes())
    styles = {item.get("name"): item.get("defStyleNum") for item in root.iter("itemData")}
    lists = {one.get("name"): [(item.text or "").strip() for item in one.findall("item")] for one in root.iter("list")}
    contexts = {one.get("name"): one for one in root.iter("context")}
    first = next(root.iter("context"))
    spellings = spellings_of(root)
    includes = [rule.get("context") for rule in root.iter("IncludeRules")] + [one.text or "" for one in root.iter("include")]
    for include in includes:
        other = file.parent / file_of(include.split("##")[-1])
        if other != file and other.exists():
            for word, ways in spellings_of(xml.etree.ElementTree.fromstring(other.read_bytes())).items():
                spellings.setdefault(word, set()).update(ways)
    words, texts = [], []
    for rule in first:
        style = styles.get(rule.get("attribute") or first.get("attribute"))
        if rule.tag == "keyword" and style not in NOT_COLOURED:
            words += [word for word in lists.get(rule.get("String"), []) if len(spellings[word.lower()]) == 1]
        target = contexts.get(rule.get("context"))
        if rule.tag == "DetectChar" and rule.get("char") in ("'", '"') and target is not None:
            inside = styles.get(target.get("attribute"))
            if inside in ("dsString", "dsChar") and rule.get("lookAhead") not in ("true", "1"):
                texts.append((rule.get("char"), rule.get("char")))
    comments = []
    for comment in root.iter("comment"):
        is_line = comment.get("name") == "singleLine"
        if not re.search(r"\s", (comment.get("start") or " ") + (comment.get("end") or "")) and (is_line or comment.get("end")):
            comments.append((comment.get("start"), "" if is_line else comment.get("end")))
    comments = [pair for pair in comments if pair[0] not in [text for text, _ in texts]]
    return colours.Facts(words, comments, texts)


def main():
    run = colours.Run(sys.argv[1])
    with tempfile.TemporaryDirectory(prefix="quillmark-definitions.") as name:
        folder = pathlib.Path(name)
        take_out(folder)
        for file in sorted(folder.glob("*.xml")):
            if run.make(file) is not None:
                run.examine(file.name, facts_of(file))
    return run.ends({"definitions": 320, "with words": 190, "with comments": 290, "with strings": 135, "words": 65000})


if __name__ == "__main__":
    sys.exit(main())
