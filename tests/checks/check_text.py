"""check_text.py ROOT: every text file is UTF-8, ends with a line end, and has neither tabs,
carriage returns nor blanks at a line's end; lines of code have at most 100 characters."""

import sys

from sources import Findings, all_files, is_code, read_bytes

# Data whose bytes matter, and pictures.
DATA_FOLDERS = ("tests/golden/", "tests/data/", "fuzz/corpus/")
DATA_SUFFIXES = (".ve2", ".vew", ".vel", ".bsd", ".png", ".ico", ".bmp")
WIDTH = 100


def check_line(path, number, line, code, findings):
    if "\t" in line:
        findings.add(path, number, "a tab")
    if "\r" in line:
        findings.add(path, number, "a carriage return")
    if line != line.rstrip(" \t\r"):
        findings.add(path, number, "blanks at the line's end")
    if code and len(line) > WIDTH:
        findings.add(path, number, f"{len(line)} characters, at most {WIDTH}")


def check_file(root, path, findings):
    data = read_bytes(root, path)
    try:
        text = data.decode("utf-8")
    except UnicodeDecodeError as error:
        findings.add(path, data.count(b"\n", 0, error.start) + 1, "not UTF-8")
        return
    lines = text.split("\n")
    if text and not text.endswith("\n"):
        findings.add(path, len(lines), "no line end at the end of the file")
    code = is_code(path, data)
    for number, line in enumerate(lines, 1):
        check_line(path, number, line, code, findings)


def main(root):
    findings = Findings()
    for path in all_files(root):
        if not path.startswith(DATA_FOLDERS) and not path.endswith(DATA_SUFFIXES):
            check_file(root, path, findings)
    findings.finish()


main(sys.argv[1])
