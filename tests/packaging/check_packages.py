"""check_packages.py ROOT FOLDER KIND: the downloads in FOLDER/new, which make_packages has made of
the checkout ROOT, hold what they must: the programs with their versions, guide, sample, documents;
the sums and the bill of materials are those of the files; those in FOLDER/old and FOLDER/again,
made by two runs, are the same bytes."""

import hashlib
import json
import pathlib
import re
import shutil
import subprocess
import sys
import zipfile

MOST_BYTES_OF_SETUP = 4 << 20
PROGRAMS = ["Corvane.exe", "corvane.com", "GrVelk.dll", "BsdVelk.dll", "ztutil32.dll",
            "ZTVelk32.dll", "BsdEdit.exe", "SectInput.exe", "SectRule.exe", "BhdInput.exe",
            "CsrCheck.exe", "BhdCheck.exe", "TorModel.exe"]
OTHERS = ["LICENSE.txt", "CHANGELOG.txt", "README.txt", "LIBRARIES.txt", "samples/aurora_bay.ve2",
          "samples/aurora_bay.vel", "help/index.html", "help/guide_search.js",
          "help/guide_index.js", "help/packages.html"]
MACHINES = {"x64": b"\x64\x86", "x86": b"\x4c\x01"}

# Its name differs between versions of Debian.
SEVEN_ZIP = shutil.which("7zz") or shutil.which("7z")

faults = []


def expect(condition, text):
    if not condition:
        faults.append(text)


def machine_of(data):
    return data[int.from_bytes(data[60:64], "little") + 4:][:2]


def time_of_link(data):
    return int.from_bytes(data[int.from_bytes(data[60:64], "little") + 8:][:4], "little")


def version_text(data, key):
    """A text of the version in a program: it follows its key, and both are UTF-16."""
    found = re.search((key + "\0").encode("utf-16-le") + rb"(?:\0\0)*((?:[^\0][^\0]|[^\0]\0)+)",
                      data)
    return found[1].decode("utf-16-le") if found else ""


def product_numbers(data):
    at = data.find(b"\xbd\x04\xef\xfe")
    high, low = (int.from_bytes(data[at + k:at + k + 4], "little") for k in (16, 20))
    return f"{high >> 16}.{high & 0xFFFF}.{low >> 16}"


def check_program(name, kind, data, version):
    expect(machine_of(data) == MACHINES[kind], f"{name}: not for {kind}")
    expect(time_of_link(data) == 0, f"{name}: holds the time when it was built")
    expect(product_numbers(data) == version, f"{name}: product {product_numbers(data)}")
    for key, wanted in (("CompanyName", "Corvane contributors"), ("OriginalFilename", name),
                        ("ProductName", "Corvane"), ("ProductVersion", version)):
        found = version_text(data, key)
        expect(found == wanted, f"{name}: {key} is '{found}'")
    for key in ("FileDescription", "LegalCopyright", "FileVersion"):
        expect(version_text(data, key), f"{name}: no {key}")


def check_portable(path, kind, version):
    with zipfile.ZipFile(path) as archive:
        files = {name.removeprefix("Corvane/"): archive.read(name) for name in archive.namelist()}
        expect(all(name.startswith("Corvane/") for name in archive.namelist()),
               f"{path.name}: files outside of one folder")
    expect(files.get("Corvane.ini") == b"[Corvane]\r\n", f"{path.name}: no Corvane.ini")
    for name in PROGRAMS + OTHERS:
        expect(name in files, f"{path.name}: no {name}")
    for name in PROGRAMS:
        if name in files:
            check_program(name, kind, files[name], version)
    expect(any(name.startswith("help/images/") for name in files), f"{path.name}: no pictures")
    for name in ("LICENSE.txt", "README.txt", "CHANGELOG.txt"):
        text = files.get(name, b"").decode("utf-8")
        expect("@" not in text and "\r\n" in text, f"{path.name}: {name} is not ready to be read")
    for name in ("CHANGELOG.txt", "README.txt"):
        expect(version in files.get(name, b"").decode(), f"{path.name}: {name} lacks the version")
    return files


def check_setup(path, kind, files):
    data = path.read_bytes()
    expect(len(data) <= MOST_BYTES_OF_SETUP, f"{path.name}: {len(data)} bytes")
    expect(machine_of(data) == MACHINES[kind], f"{path.name}: not for {kind}")
    expect(b'level="asInvoker"' in data, f"{path.name}: asks for rights at the start")
    expect(version_text(data, "CompanyName") == "Corvane contributors", f"{path.name}: no version")
    listing = subprocess.run([SEVEN_ZIP, "l", "-slt", str(path)], check=True, capture_output=True,
                             text=True).stdout
    inside = {name.replace("\\", "/").removeprefix("Corvane-setup.new/")
              for name in re.findall(r"^Path = (.+)$", listing, re.MULTILINE)}
    missing = sorted(set(files) - inside - {"Corvane.ini"})
    expect(not missing, f"{path.name}: lacks {missing[:3]}")


def check_sums(folder):
    lines = dict(reversed(line.split("  ")) for line in
                 (folder / "SHA256SUMS").read_text().splitlines())
    files = {path.name for path in folder.iterdir()} - {"SHA256SUMS"}
    expect(set(lines) == files, f"SHA256SUMS: {set(lines) ^ files}")
    for name in files & set(lines):
        found = hashlib.sha256((folder / name).read_bytes()).hexdigest()
        expect(lines[name] == found, f"SHA256SUMS: {name}")


def check_bill(folder, version, files):
    bill = json.loads((folder / f"Corvane-{version}.spdx.json").read_text())
    for key in ("spdxVersion", "dataLicense", "SPDXID", "name", "documentNamespace",
                "creationInfo", "packages", "relationships"):
        expect(bill.get(key), f"bill of materials: no {key}")
    known = {item["SPDXID"] for item in bill["packages"] + bill["files"]} | {"SPDXRef-DOCUMENT"}
    expect(len(known) == len(bill["packages"]) + len(bill["files"]) + 1,
           "bill of materials: one name for two things")
    sums = {item["fileName"]: set() for item in bill["files"]}
    for item in bill["files"]:
        sums[item["fileName"]].update(sum["checksumValue"] for sum in item["checksums"])
    for relation in bill["relationships"]:
        expect({relation["spdxElementId"], relation["relatedSpdxElement"]} <= known,
               f"bill of materials: {relation}")
    for name, data in files.items():
        expect(name == "Corvane.ini" or
               hashlib.sha256(data).hexdigest() in sums.get("./" + name, ()),
               f"bill of materials: not {name}")
    linked = [relation for relation in bill["relationships"]
              if relation["relationshipType"] == "STATIC_LINK"]
    expect(len(linked) >= 4, "bill of materials: no libraries")


def check_again(folder):
    """Another run, at another hour, has given the same bytes."""
    old, again = ({path.name: path.read_bytes() for path in (folder / name).iterdir()}
                  for name in ("old", "again"))
    expect(len(old) == 5, f"older version: {sorted(old)}")
    for name in sorted(set(old) | set(again)):
        expect(old.get(name) == again.get(name), f"{name}: another run gives other bytes")


def main(root, folder, kind):
    folder, new = pathlib.Path(folder), pathlib.Path(folder) / "new"
    version = re.search(r"^project\(Corvane VERSION ([\d.]+)",
                        (root / "CMakeLists.txt").read_text(), re.MULTILINE)[1]
    name = f"Corvane-{version}-{kind}"
    files = check_portable(new / f"{name}-portable.zip", kind, version)
    check_setup(new / f"{name}-setup.exe", kind, files)
    with zipfile.ZipFile(new / f"Corvane-{version}-symbols.zip") as archive:
        expect(set(archive.namelist()) == {f"{kind}/{name}.debug" for name in PROGRAMS},
               "symbols: others")
    check_sums(new)
    check_bill(new, version, files)
    check_again(folder)
    for fault in faults:
        print(fault)
    print(f"{len(faults)} fault(s)")
    sys.exit(bool(faults))


main(pathlib.Path(sys.argv[1]), sys.argv[2], sys.argv[3])
