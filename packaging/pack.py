"""What is in the downloads, and how they are written; packaging/package calls it.

    pack.py stage BUILD VERSION FOLDER        the files of a build, a folder for each component
    pack.py lists STAGE FOLDER                what corvane.nsi includes of each component
    pack.py zip STAGE FILE                    the portable program
    pack.py tar STAGE FILE                    the command line program for Linux
    pack.py symbols FILE NAME=BUILD...        the debug sections of builds
    pack.py bill VERSION FOLDER NAME=STAGE... the bill of materials (SPDX), in FOLDER
    pack.py sums FOLDER                       SHA256SUMS of all files in FOLDER

All that is written depends on the contents alone, and on SOURCE_DATE_EPOCH, the time of every file
in it: the same sources and tools give the same bytes.
"""

import gzip
import hashlib
import io
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tarfile
import time
import uuid
import zipfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
EPOCH = int(os.environ["SOURCE_DATE_EPOCH"])

COMPANIONS = ["GrVelk", "BsdVelk", "ztutil32", "ZTVelk32"]
STAND_INS = ["BsdEdit", "SectInput", "SectRule", "BhdInput", "CsrCheck", "BhdCheck", "TorModel"]
SAMPLES = ["aurora_bay.ve2", "aurora_bay.vel"]
# Names of our documents, and whether they are in the folder packaging/.
DOCUMENTS = {"LICENSE": ROOT, "CHANGELOG.md": ROOT, "README.txt": ROOT / "packaging"}
# What the programs contain besides our own code: Debian's package, for which builds, its licence.
RUNTIME = [
    ("g++-mingw-w64-x86-64-posix", "x64", "GPL-3.0-or-later WITH GCC-exception-3.1",
     "libstdc++ and libgcc of GCC"),
    ("g++-mingw-w64-i686-posix", "x86", "GPL-3.0-or-later WITH GCC-exception-3.1",
     "libstdc++ and libgcc of GCC"),
    ("mingw-w64-x86-64-dev", "x64", "ZPL-2.1 AND MIT",
     "start-up code, import libraries and winpthreads of mingw-w64"),
    ("mingw-w64-i686-dev", "x86", "ZPL-2.1 AND MIT",
     "start-up code, import libraries and winpthreads of mingw-w64"),
    ("libstdc++-{gcc}-dev", "linux-x64", "GPL-3.0-or-later WITH GCC-exception-3.1",
     "libstdc++ and libgcc of GCC"),
]
INSTALLER = ("nsis", "x64 x86", "Zlib AND CPL-1.0",
             "the program that unpacks, in the setup programs")


def fail(text):
    sys.exit("pack: " + text)


def text_of(path):
    return path.read_text(encoding="utf-8")


def runtime_of(kind):
    gcc = subprocess.run(["g++", "-dumpversion"], check=True, capture_output=True,
                         text=True).stdout.split(".")[0].strip()
    return [(name.format(gcc=gcc), licence, what)
            for name, kinds, licence, what in RUNTIME + [INSTALLER] if kind in kinds.split()]


def debian_version(package):
    found = subprocess.run(["dpkg-query", "-W", "-f=${Version}", package], check=True,
                           capture_output=True, text=True).stdout
    return found or fail(f"the package {package} is not installed")


def licence_of(package):
    return text_of(pathlib.Path("/usr/share/doc", package, "copyright"))


# ---- The files of a build ----------------------------------------------------------------------

def kind_of(build):
    """x64, x86 or linux-x64, by what the build has."""
    program = build / "bin/Corvane.exe"
    if not program.is_file():
        return "linux-x64"
    data = program.read_bytes()[:1024]
    machine = data[int.from_bytes(data[60:64], "little") + 4:][:2]
    return {b"\x64\x86": "x64", b"\x4c\x01": "x86"}[machine]


def put(target, data):
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes(data)
    os.utime(target, (EPOCH, EPOCH))


def copy(source, target):
    if not source.is_file():
        fail(f"there is no {source}")
    put(target, source.read_bytes())
    target.chmod(0o755 if os.access(source, os.X_OK) else 0o644)


def put_documents(folder, kind, version):
    """The documents, for Windows with a name and line ends that its editor knows."""
    texts = {name: text_of(place / name) for name, place in DOCUMENTS.items()}
    texts["LIBRARIES"] = "".join(
        f"{name}: {what}\n{'=' * 72}\n\n{licence_of(name)}\n"
        for name, _, what in runtime_of(kind))
    for name, text in texts.items():
        text = text.replace("@VERSION@", version)
        if kind != "linux-x64":
            name, text = name.split(".")[0] + ".txt", text.replace("\n", "\r\n")
        put(folder / name, text.encode("utf-8"))


def put_guide(build, folder):
    for path in sorted((build / "bin/help").rglob("*")):
        if path.is_file():
            copy(path, folder / path.relative_to(build / "bin/help"))


def stage_windows(build, folder):
    for name in ["Corvane.exe", "corvane.com"] + [name + ".dll" for name in COMPANIONS]:
        copy(build / "bin" / name, folder / "program" / name)
    put_guide(build, folder / "program/help")
    for name in STAND_INS:
        copy(build / "bin" / f"{name}.exe", folder / "stand_ins" / f"{name}.exe")
    for name in SAMPLES:
        copy(ROOT / "samples" / name, folder / "samples/samples" / name)


def stage_linux(build, folder):
    for name in ["corvane"] + [name + ".so" for name in COMPANIONS]:
        copy(build / "bin" / name, folder / "program/bin" / name)
    copy(ROOT / "tools/corvane.1", folder / "program/share/man/man1/corvane.1")
    put_guide(build, folder / "program/share/doc/corvane/help")
    for name in SAMPLES:
        copy(ROOT / "samples" / name, folder / "program/share/doc/corvane/samples" / name)


def stage(build, version, folder):
    build, folder = pathlib.Path(build), pathlib.Path(folder)
    shutil.rmtree(folder, ignore_errors=True)
    kind = kind_of(build)
    (stage_linux if kind == "linux-x64" else stage_windows)(build, folder)
    put_documents(folder / "program", kind, version)


def files_below(folder):
    return sorted(path.relative_to(folder).as_posix() for path in folder.rglob("*")
                  if path.is_file())


def all_files(stage_folder):
    """{path in the package: file} of all components."""
    found = {}
    for part in sorted(path for path in stage_folder.iterdir() if path.is_dir()):
        found.update((path, part / path) for path in files_below(part))
    return dict(sorted(found.items()))


# ---- Setup -------------------------------------------------------------------------------------

def lists(stage_folder, folder):
    stage_folder, folder = pathlib.Path(stage_folder), pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    for part in ("program", "samples", "stand_ins"):
        paths = files_below(stage_folder / part)
        names = [path.replace("/", "\\") for path in paths]
        put(folder / f"{part}.txt", "".join(f"{name}\r\n" for name in names).encode())
        script, place = "", None
        for path, name in zip(paths, names):
            parent = "\\".join(["${NEW}"] + name.split("\\")[:-1])
            if parent != place:
                script, place = script + f'SetOutPath "{parent}"\n', parent
            script += f'File "/oname={name.split(chr(92))[-1]}" "{stage_folder / part / path}"\n'
        put(folder / f"{part}.nsh", script.encode())


# ---- Archives ----------------------------------------------------------------------------------

def write_zip(file, files):
    moment = time.gmtime(EPOCH)[:6]
    with zipfile.ZipFile(file, "w", zipfile.ZIP_DEFLATED) as archive:
        for path, data in sorted(files.items()):
            entry = zipfile.ZipInfo(path, moment)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o100644 << 16
            archive.writestr(entry, data)


def portable(stage_folder, file):
    files = {f"Corvane/{path}": source.read_bytes()
             for path, source in all_files(pathlib.Path(stage_folder)).items()}
    # With this file beside the program nothing is written anywhere else.
    files["Corvane/Corvane.ini"] = b"[Corvane]\r\n"
    write_zip(file, files)


def tar(stage_folder, file):
    top = pathlib.Path(file).name.removesuffix(".tar.gz")
    buffer = io.BytesIO()
    with tarfile.open(fileobj=buffer, mode="w", format=tarfile.GNU_FORMAT) as archive:
        for path, source in all_files(pathlib.Path(stage_folder)).items():
            entry = tarfile.TarInfo(f"{top}/{path}")
            entry.size, entry.mtime = source.stat().st_size, EPOCH
            entry.mode = 0o755 if os.access(source, os.X_OK) else 0o644
            entry.uname = entry.gname = "root"
            archive.addfile(entry, io.BytesIO(source.read_bytes()))
    pathlib.Path(file).write_bytes(gzip.compress(buffer.getvalue(), 9, mtime=EPOCH))


def symbols(file, *builds):
    files = {}
    for build in builds:
        name, _, folder = build.partition("=")
        folder = pathlib.Path(folder)
        for path in all_shipped(folder):
            debug = folder / "symbols" / (path + ".debug")
            files[f"{name}/{debug.name}"] = debug.read_bytes()
    write_zip(file, files)


def all_shipped(build):
    if kind_of(build) == "linux-x64":
        return ["corvane"] + [name + ".so" for name in COMPANIONS]
    return ["Corvane.exe", "corvane.com"] + [name + ".dll" for name in COMPANIONS] + \
        [name + ".exe" for name in STAND_INS]


# ---- Bill of materials and sums ----------------------------------------------------------------

def digest(data, kind):
    return hashlib.new(kind, data).hexdigest()


def checksums(data):
    return [{"algorithm": name, "checksumValue": digest(data, name.lower())}
            for name in ("SHA1", "SHA256")]


def package_entry(name, version, licence, **more):
    entry = {"SPDXID": "SPDXRef-" + "".join(c if c.isalnum() else "-" for c in name),
             "name": name, "versionInfo": version, "downloadLocation": "NOASSERTION",
             "licenseConcluded": licence, "licenseDeclared": licence,
             "copyrightText": "NOASSERTION", "filesAnalyzed": False}
    return entry | more


class Bill:
    """The document that is being written."""

    def __init__(self, version):
        own = {"copyrightText": "Copyright 2026 Corvane contributors",
               "supplier": "Organization: Corvane contributors"}
        self.packages = [package_entry("Corvane", version, "MIT", **own)]
        self.files, self.relations = [], []
        self.relate("SPDXRef-DOCUMENT", "DESCRIBES", "SPDXRef-Corvane")

    def relate(self, one, kind, other):
        self.relations.append({"spdxElementId": one, "relationshipType": kind,
                               "relatedSpdxElement": other})

    def add_file(self, path, data, owner):
        identity = f"SPDXRef-File-{len(self.files) + 1}"
        self.files.append({"SPDXID": identity, "fileName": "./" + path,
                           "checksums": checksums(data), "licenseConcluded": "NOASSERTION",
                           "copyrightText": "NOASSERTION"})
        self.relate(owner, "CONTAINS", identity)

    def add_download(self, path, version, files):
        data = path.read_bytes()
        # SPDX has one sum for all files of a package.
        code = digest("".join(sorted(digest(file, "sha1") for file in files.values())).encode(),
                      "sha1")
        entry = package_entry(path.name, version, "NOASSERTION", packageFileName=path.name,
                              checksums=checksums(data), filesAnalyzed=True,
                              packageVerificationCode={"packageVerificationCodeValue": code})
        self.packages.append(entry)
        self.relate("SPDXRef-Corvane", "CONTAINS", entry["SPDXID"])
        for name, file in files.items():
            self.add_file(name, file, entry["SPDXID"])
        return entry["SPDXID"]

    def add_runtime(self, kind, owner, has_installer):
        for name, licence, what in runtime_of(kind):
            if name == INSTALLER[0] and not has_installer:
                continue
            entry = package_entry(name, debian_version(name), licence, comment=what,
                                  supplier="Organization: Debian")
            if entry not in self.packages:
                self.packages.append(entry)
            link = "BUILD_TOOL_OF" if name == INSTALLER[0] else "STATIC_LINK"
            if link == "STATIC_LINK":
                self.relate(owner, link, entry["SPDXID"])
            else:
                self.relate(entry["SPDXID"], link, owner)


def bill(version, folder, *stages):
    """The downloads in the folder; what is in them, by the stages they were made of."""
    folder, document = pathlib.Path(folder), Bill(version)
    downloads = sorted(path for path in folder.iterdir()
                       if path.suffix in (".exe", ".zip", ".gz") and "symbols" not in path.name)
    for path in downloads:
        for kind, _, stage_folder in (item.partition("=") for item in stages):
            if f"-{kind}" not in path.name:
                continue
            files = {name: source.read_bytes()
                     for name, source in all_files(pathlib.Path(stage_folder)).items()}
            owner = document.add_download(path, version, files)
            document.add_runtime(kind, owner, path.suffix == ".exe")
    sums = "".join(digest(path.read_bytes(), "sha256") for path in downloads)
    name = f"Corvane-{version}"
    result = {
        "spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT",
        "name": name,
        "documentNamespace": f"urn:uuid:{uuid.uuid5(uuid.NAMESPACE_OID, name + sums)}",
        "creationInfo": {"created": time.strftime("%Y-%m-%dT%H:%M:%SZ", time.gmtime(EPOCH)),
                         "creators": ["Organization: Corvane contributors",
                                      "Tool: packaging/pack.py"]},
        "packages": document.packages, "files": document.files,
        "relationships": document.relations}
    (folder / f"{name}.spdx.json").write_text(json.dumps(result, indent=1) + "\n")


def sums(folder):
    folder = pathlib.Path(folder)
    lines = [f"{digest((folder / name).read_bytes(), 'sha256')}  {name}\n"
             for name in files_below(folder) if name != "SHA256SUMS"]
    (folder / "SHA256SUMS").write_text("".join(lines))


COMMANDS = {"stage": stage, "lists": lists, "zip": portable, "tar": tar, "symbols": symbols,
            "bill": bill, "sums": sums}

if __name__ == "__main__":
    if len(sys.argv) < 2 or sys.argv[1] not in COMMANDS:
        fail("pack.py " + "|".join(COMMANDS) + " ...")
    COMMANDS[sys.argv[1]](*sys.argv[2:])
