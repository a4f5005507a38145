"""check_message_numbers.py ROOT: messages have the names of report/message_numbers.h, and are never
named by their number."""

import re
import sys

from sources import Findings, cpp_files, read_bytes

CALL = re.compile(r"\b(GetMessage|GetMessageBytes|FormatMessage|ReportMessage|ReportStatus"
                  r"|ReportSilent)\s*\(\s*[-+]?\s*\d")
# Tests may ask for numbers that have no message.
FREE = ("tests/", "fuzz/", "benchmarks/")


def main(root):
    findings = Findings()
    for path in cpp_files(root):
        if path.startswith(FREE):
            continue
        text = read_bytes(root, path).decode("utf-8", "replace")
        for call in CALL.finditer(text):
            line = text.count("\n", 0, call.start()) + 1
            findings.add(path, line, f"{call.group(1)} gets a bare number")
    findings.finish()


main(sys.argv[1])
