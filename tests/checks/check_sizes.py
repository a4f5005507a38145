"""check_sizes.py ROOT: no procedure over 70 lines, no file of code over 600."""

import re
import sys

from sources import Findings, all_files, is_code, read_bytes

PROCEDURE_LINES = 70
FILE_LINES = 600
# Plain tables.
TABLES = ("report/message_numbers.h",)

NOT_CODE = re.compile(
    r"""//[^\n]*|/\*.*?\*/                          # comments
      |R"([^(\s]*)\(.*?\)\1"                        # raw strings
      |"(?:\\.|[^"\\\n])*"                          # strings
      |(?<![0-9A-Za-z_])[uUL]?'(?:\\.|[^'\\\n])+'   # characters, but not 1'000
      |^[ ]*\#(?:\\\n|[^\n])*                       # directives
    """,
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)
SCOPE = re.compile(r"^(?:template\s*<[^{]*>\s*)?(?:inline\s+)?"
                   r"(?:namespace|class|struct|union|enum|extern\b)")
BEHIND_PARAMETERS = re.compile(r"(?:\)|\}|\bconst|\bnoexcept|\boverride|\bfinal|\btry"
                               r"|->[^;{}()]*)$")


def blanked(text):
    """The text with comments, strings and directives blanked out, line ends kept."""
    return NOT_CODE.sub(lambda found: re.sub(r"[^\n]", " ", found.group()), text)


def kind_of(head, inside_procedure):
    """What an opening brace begins, judged by the text before it."""
    if inside_procedure:
        return "block"
    if SCOPE.match(head):
        return "scope"
    if "(" in head and BEHIND_PARAMETERS.search(head):
        return "procedure"
    return "value"


def procedures(text):
    """(first line, last line, first words) of every procedure in a C++ source."""
    code = blanked(text)
    found, stack = [], []
    head_start, line = 0, 1
    for position, character in enumerate(code):
        if character == "\n":
            line += 1
        elif character == "{":
            raw = code[head_start:position]
            head = raw.strip()
            inside = any(kind in ("procedure", "block") for kind, _, _, _ in stack)
            first = line - raw[len(raw) - len(raw.lstrip()):].count("\n")
            stack.append((kind_of(head, inside), first, head, head_start))
            head_start = position + 1
        elif character == "}" and stack:
            kind, first, head, outer_start = stack.pop()
            if kind == "procedure":
                found.append((first, line, head))
            # A value, such as a member's first value, belongs to the text around it.
            head_start = outer_start if kind == "value" else position + 1
        elif character == ";":
            head_start = position + 1
    return found


def check_file(path, text, findings):
    lines = text.count("\n")
    if lines > FILE_LINES:
        findings.add(path, lines, f"{lines} lines, at most {FILE_LINES} in a file")
    if not path.endswith((".cpp", ".h")):
        return
    for first, last, head in procedures(text):
        size = last - first + 1
        if size > PROCEDURE_LINES:
            name = " ".join(head.split())[:60]
            findings.add(path, first, f"{size} lines, at most {PROCEDURE_LINES}: {name}")


def main(root):
    findings = Findings()
    for path in all_files(root):
        data = read_bytes(root, path)
        if is_code(path, data) and path not in TABLES:
            check_file(path, data.decode("utf-8", "replace"), findings)
    findings.finish()


main(sys.argv[1])
