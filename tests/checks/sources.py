"""What the checks share: the files of the checkout, and how a finding is reported."""

import os
import sys

SKIPPED_FOLDERS = {"build", ".git", ".cache", "__pycache__"}


class Findings:
    """Counts and prints findings; a check's exit status is 1 when there was one."""

    def __init__(self):
        self.count = 0

    def add(self, path, line, text):
        self.count += 1
        print(f"{path}:{line}: {text}")

    def finish(self):
        if self.count:
            print(f"{self.count} finding(s)")
        sys.exit(1 if self.count else 0)


def all_files(root):
    """Paths of all files below root, relative to it, with "/", sorted."""
    found = []
    for folder, folders, names in os.walk(root):
        folders[:] = [name for name in folders if name not in SKIPPED_FOLDERS]
        for name in names:
            if name not in SKIPPED_FOLDERS:
                path = os.path.relpath(os.path.join(folder, name), root)
                found.append(path.replace(os.sep, "/"))
    return sorted(found)


def cpp_files(root):
    return [path for path in all_files(root) if path.endswith((".cpp", ".h"))]


def read_bytes(root, path):
    with open(os.path.join(root, path), "rb") as file:
        return file.read()


def read_lines(root, path):
    return read_bytes(root, path).decode("utf-8", "replace").splitlines()


def is_code(path, data):
    """Sources, scripts and build files: what people read and write as code."""
    name = path.rsplit("/", 1)[-1]
    if path.endswith((".cpp", ".h", ".rc", ".cmake", ".py", ".sh", ".iss", ".nsi")):
        return True
    return name == "CMakeLists.txt" or data.startswith(b"#!")
