"""check_includes.py ROOT: arrows between folders go down only, and what belongs to one system stays
in its twin folder."""

import os
import re
import sys

from sources import Findings, cpp_files, read_lines

# What each folder may include besides itself.
LAYERS = ["platform", "text", "report", "files", "bsd", "database"]
BELOW_SHELL = ["preview", "legacy"] + LAYERS
ROOMS = ["ui/base", "ui/pictures", "ui/dialogs", "ui/main_window"]
BELOW = {name: LAYERS[:i] for i, name in enumerate(LAYERS)} | {
    "preview": LAYERS,
    "legacy": LAYERS,
    "shell": BELOW_SHELL,
    "drafting": LAYERS,
    "tools": ["ui/pictures", "ui/base", "shell"] + BELOW_SHELL,
    "stand_ins": ["drafting", "ui/dialogs", "ui/pictures", "ui/base", "shell"] + BELOW_SHELL,
} | {name: ROOMS[:i] + ["shell"] + BELOW_SHELL for i, name in enumerate(ROOMS)}
# Tests and tools look at everything.
FREE = ("tests", "fuzz", "benchmarks", "samples")

WINDOWS_PLACES = re.compile(r"^(ui|tests/ui|(.*/)?win32)/")
SYSTEM_CONDITIONS = re.compile(r"^(platform/|ui/|companions/|tests/support/support\.cpp$)")
HOST_PLACES = re.compile(r"^((platform|tools)/host|companions/[^/]+/host|tests|fuzz|benchmarks)/")
WINDOWS_HEADER = "platform/win32/win32.h"

WINDOWS_SYSTEM = re.compile(r"^(win\w*|comm\w+|shell\w*|shl\w+|obj\w+|ole\w*|rpc\w*|uxtheme"
                            r"|dwmapi|lm\w*|tlhelp32|dbghelp|direct|process|io|sddl|aclapi"
                            r"|psapi|mbctype|mbstring|tchar)\.h$")
HOST_SYSTEM = re.compile(r"^(unistd|dlfcn|fcntl|pthread|dirent|pwd|poll|spawn|termios|utime"
                         r"|sys/\w+|langinfo|iconv|features)\.h$")

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
CONDITION = re.compile(r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b.*"
                       r"\b(_WIN32|WIN32|_WIN64|__linux__|__unix__|__MINGW\w+|_MSC_VER)\b")


def folder_of(path):
    parts = path.split("/")
    if parts[0] in ("ui", "companions") and len(parts) > 2:
        return "/".join(parts[:2])
    return parts[0]


def may_include(path, included):
    """Whether the file `path` may include the project's file `included`."""
    source, target = folder_of(path), folder_of(included)
    if source in FREE or source == target:
        return True
    if source.startswith("companions"):
        # Headers directly in companions/ are what several of them share.
        return target in ("platform", "companions")
    return target in BELOW.get(source, [])


def check_own(root, path, number, included, findings):
    if not os.path.isfile(os.path.join(root, included)):
        findings.add(path, number, f"no file {included}; paths begin at the root")
    elif not may_include(path, included):
        findings.add(path, number, f"{folder_of(path)}/ may not include {included}")
    elif included.startswith("platform/win32/") and not WINDOWS_PLACES.match(path):
        findings.add(path, number, f"{included} outside the folders that are for Windows only")
    elif included.startswith("platform/host/") and not HOST_PLACES.match(path):
        findings.add(path, number, f"{included} outside the host's twin folders")


def check_system(path, number, header, findings):
    name = header.lower()
    if name == "windows.h" and path != WINDOWS_HEADER:
        findings.add(path, number, f"<windows.h> is included through {WINDOWS_HEADER} only")
    elif WINDOWS_SYSTEM.match(name) and not WINDOWS_PLACES.match(path):
        findings.add(path, number, f"<{header}> outside the folders that are for Windows only")
    elif HOST_SYSTEM.match(name) and not HOST_PLACES.match(path):
        findings.add(path, number, f"<{header}> outside the host's twin folders")


def check_file(root, path, findings):
    lines = read_lines(root, path)
    directives = [line for line in lines if re.match(r"\s*#", line)]
    if path.endswith(".h") and (not directives or directives[0].strip() != "#pragma once"):
        findings.add(path, 1, "no #pragma once before all other directives")
    for number, line in enumerate(lines, 1):
        include = INCLUDE.match(line)
        if include and include.group(1) == '"':
            check_own(root, path, number, include.group(2), findings)
        elif include:
            check_system(path, number, include.group(2), findings)
        condition = CONDITION.match(line)
        if condition and not SYSTEM_CONDITIONS.match(path):
            findings.add(path, number, f"{condition.group(1)}: a difference is a twin file")


def main(root):
    findings = Findings()
    for path in cpp_files(root):
        check_file(root, path, findings)
    findings.finish()


main(sys.argv[1])
