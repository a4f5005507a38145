"""check_binaries.py ROOT OBJDUMP FOLDER: the programs and libraries for Windows in FOLDER are
hardened, need nothing that Windows does not have, say nothing of the machine that built them and
of who did, and the companion libraries export exactly the functions that the contracts in
platform/ name, undecorated."""

import getpass
import os
import re
import socket
import struct
import subprocess
import sys

from sources import Findings, all_files, read_bytes

SYSTEM_LIBRARIES = {
    "advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll",
    "ole32.dll", "oleaut32.dll", "rpcrt4.dll", "shell32.dll", "shlwapi.dll", "user32.dll",
    "uxtheme.dll", "version.dll",
}
STAND_IN = re.compile(r"^corvane_stand_in\((\w+) ", re.MULTILINE)
LATE_BOUND = re.compile(r'^CORVANE_LATE_BOUND\("([^"]+)",\s*(\w+)\)', re.MULTILINE)
# A source of ours, or of the compiler, by its full path on the machine that built it.
BUILD_PATH = re.compile(rb"(?<![\w./+-])/(?:[\w.+ -]+/)+[\w.+-]+\.(?:c|cc|cpp|cxx|h|hpp|tcc|o|a)\b"
                        rb"|/usr/(?:include|lib|src)/[\w./+-]+")
# What the stack protector and the standard library's assertions leave in a file that uses them.
# BsdVelk has no array and no container: there is nothing to protect.
PROTECTIONS = {
    b"*** stack smashing detected ***": "the stack protector",
    b"__n < this->size()": "the standard library's assertions",
}
WITHOUT_ARRAYS = {"BsdVelk.dll"}
# Of a section's flags, and of the file's.
EXECUTABLE = 0x20000000
WRITABLE = 0x80000000
RELOCATIONS_STRIPPED = 0x0001
# A shorter name of a user or a machine may be any word.
LONG_NAME = 6


def contracts(root):
    """The functions of every companion library, by library."""
    functions = {}
    for path in all_files(root):
        if path.startswith("platform/") and path.endswith(".h"):
            text = read_bytes(root, path).decode("utf-8")
            for library, function in LATE_BOUND.findall(text):
                functions.setdefault(library, set()).add(function)
    return functions


def programs(root):
    """The shell, the command line program, and the stand-ins for the suite's other programs."""
    names = ["Corvane.exe"] if os.path.isdir(os.path.join(root, "ui")) else []
    if os.path.isdir(os.path.join(root, "stand_ins")):
        build_file = read_bytes(root, "stand_ins/CMakeLists.txt").decode("utf-8")
        stand_ins = STAND_IN.findall(build_file)
        if len(stand_ins) != 7:
            print(f"stand_ins/CMakeLists.txt: {len(stand_ins)} stand-ins, not 7")
            sys.exit(1)
        names += [f"{name}.exe" for name in stand_ins]
    if os.path.isdir(os.path.join(root, "tools")):
        names.append("corvane.com")
    return names


def describe(objdump, path):
    command = [objdump, "-p", "-h", path]
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def exports(description):
    table = description.partition("[Ordinal/Name Pointer] Table")[2].partition("\n\n")[0]
    row = r"^\s+\[\s*\d+\] (?:\+base\[\s*\d+\]\s+\w+ )?(\S+)$"
    return set(re.findall(row, table, re.MULTILINE))


def check_hardening(name, description, findings):
    wanted = ["DYNAMIC_BASE", "NX_COMPAT"]
    if "pei-x86-64" in description:
        wanted.append("HIGH_ENTROPY_VA")
    for flag in wanted:
        if not re.search(rf"^\s+{flag}$", description, re.MULTILINE):
            findings.add(name, 0, f"lacks {flag}")


def header_of(data):
    """The file's flags, the size of its table of relocations, and its sections with their flags."""
    start = struct.unpack_from("<I", data, 0x3C)[0] + 4
    count, option_size, flags = struct.unpack_from("<2xH12xHH", data, start)
    options = start + 20
    is_wide = struct.unpack_from("<H", data, options)[0] == 0x20B
    directories = options + (112 if is_wide else 96)
    relocations = struct.unpack_from("<I", data, directories + 5 * 8 + 4)[0]
    sections = []
    for i in range(count):
        at = options + option_size + 40 * i
        name = data[at:at + 8].rstrip(b"\0").decode("latin-1")
        sections.append((name, struct.unpack_from("<I", data, at + 36)[0]))
    return flags, relocations, sections


def check_header(name, data, findings):
    flags, relocations, sections = header_of(data)
    if flags & RELOCATIONS_STRIPPED or relocations == 0:
        findings.add(name, 0, "has no relocations, so that it is always at one address")
    for section, rights in sections:
        if rights & EXECUTABLE and rights & WRITABLE:
            findings.add(name, 0, f"section {section} can be written and run")


def check_protections(name, data, findings):
    if name in WITHOUT_ARRAYS:
        return
    for mark, what in PROTECTIONS.items():
        if mark not in data:
            findings.add(name, 0, f"does not use {what}")


def check_imports(name, description, findings):
    for library in re.findall(r"DLL Name: (\S+)", description):
        if library.lower() not in SYSTEM_LIBRARIES:
            findings.add(name, 0, f"imports {library}, which Windows does not have")


def check_exports(name, description, wanted, findings):
    found = exports(description)
    for function in sorted(wanted - found):
        findings.add(name, 0, f"does not export {function}")
    for function in sorted(found - wanted):
        findings.add(name, 0, f"exports {function}, which no contract names")


def private_texts(root):
    """The checkout, the user's folder, and the names of user and machine as paths and addresses
    have them; a long name anywhere."""
    user = getpass.getuser()
    host = socket.gethostname()
    texts = {os.path.abspath(root), f"/{user}/", f"\\{user}\\", f"{user}@", f"@{host}"}
    home = os.path.expanduser("~")
    if len(home) > 1:
        texts.add(home)
    texts.update(word for word in (user, host) if len(word) >= LONG_NAME)
    return {text.encode() for text in texts}


def check_origin(root, data, name, description, findings):
    for section in re.findall(r"\s(\.debug_\w+)\s", description):
        findings.add(name, 0, f"holds the debug section {section}")
    paths = set()
    private = private_texts(root)
    # Wide texts have a zero in every second byte.
    for text in (data, data[::2], data[1::2]):
        paths.update(BUILD_PATH.findall(text))
        paths.update(word for word in private if word in text)
    for found in sorted(paths)[:3]:
        findings.add(name, 0, f"holds the text {found.decode('latin-1')}")


def main(root, objdump, folder):
    findings = Findings()
    wanted = contracts(root)
    if len(wanted) < 4:
        findings.add("platform", 0, f"contracts of {len(wanted)} libraries, not of 4")
    for name in sorted(wanted) + programs(root):
        path = os.path.join(folder, name)
        if not os.path.isfile(path):
            findings.add(path, 0, "missing")
            continue
        description = describe(objdump, path)
        with open(path, "rb") as file:
            data = file.read()
        check_hardening(name, description, findings)
        check_header(name, data, findings)
        check_protections(name, data, findings)
        check_imports(name, description, findings)
        check_origin(root, data, name, description, findings)
        if name in wanted:
            check_exports(name, description, wanted[name], findings)
    findings.finish()


main(*sys.argv[1:])
