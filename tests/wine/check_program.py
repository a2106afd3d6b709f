"""Checks what a program for Windows asks Windows for: check_program.py FILE VERSION gui|console

It needs no DLL but Windows' own, is of the stated subsystem, and holds the manifest and the version
that Windows looks for in it.
"""
import re
import struct
import subprocess
import sys
import xml.etree.ElementTree as xml

# What every Windows 10 has, wherever a program is unpacked.
WINDOWS_OWN = set("""
    advapi32 authz comctl32 comdlg32 d3d9 d3d11 dwmapi dxgi gdi32 imm32 kernel32 msvcrt netapi32 ole32
    oleaut32 shcore shell32 shlwapi user32 userenv uxtheme version winmm ws2_32 wtsapi32
    """.split())
SUBSYSTEMS = {"gui": 2, "console": 3}
# Types of resources, and the name of a program's own of either type.
VERSION_TYPE, MANIFEST_TYPE, OWN = 16, 24, 1

SETTINGS = "http://schemas.microsoft.com/SMI/{}/WindowsSettings"
ASKED_FOR = {
    f"{{{SETTINGS.format(2019)}}}activeCodePage": "UTF-8",
    f"{{{SETTINGS.format(2016)}}}longPathAware": "true",
    f"{{{SETTINGS.format(2005)}}}dpiAware": "true/pm",
    f"{{{SETTINGS.format(2016)}}}dpiAwareness": "PerMonitorV2",
}


def tell(option, path):
    return subprocess.run(["x86_64-w64-mingw32-objdump", option, path], check=True,
                          capture_output=True, encoding="utf-8", errors="replace").stdout


def resource_section(path):
    """The bytes of the resources and the address at which Windows has them."""
    address = re.search(r"^Entry 2 (\w+) \w+ Resource Directory", tell("-p", path), re.M)
    place = re.search(r"^ +\d+ \.rsrc +(\w+)  \w+  \w+  (\w+)", tell("-h", path), re.M)
    if not address or not place:
        return b"", 0
    size, start = (int(number, 16) for number in place.groups())
    with open(path, "rb") as file:
        file.seek(start)
        return file.read(size), int(address[1], 16)


def entries(section, at):
    """The numbers and the offsets that a directory of resources lists."""
    named, numbered = struct.unpack_from("<HH", section, at + 12)
    for index in range(named + numbered):
        yield struct.unpack_from("<II", section, at + 16 + 8 * index)


def resource(path, kind):
    """The content of the program's own resource of a type, or nothing."""
    section, address = resource_section(path)
    if not section:
        return b""
    at = 0
    # The directory of types leads to one of names, and that to one of languages.
    for wanted in (kind, OWN, None):
        found = [offset for number, offset in entries(section, at) if wanted in (number, None)]
        if not found:
            return b""
        at = found[0] & 0x7FFFFFFF
    start, size = struct.unpack_from("<II", section, at)
    return section[start - address:start - address + size]


def version_text(content, name):
    """A text of the version resource: its name, filled up to four bytes, and its value."""
    found = re.search((name + "\0").encode("utf-16-le") + b"(?:\0\0)?((?:..)*?)\0\0", content, re.S)
    return found[1].decode("utf-16-le", "replace") if found else None


def mistakes(path, version, subsystem):
    headers = tell("-p", path)
    stated = re.search(r"^Subsystem\s+(\w+)", headers, re.M)
    if not stated or int(stated[1], 16) != SUBSYSTEMS[subsystem]:
        yield f"it is no {subsystem} program"

    libraries = [name.lower() for name in re.findall(r"DLL Name: (.+)", headers)]
    if not libraries:
        yield "it names no DLL at all"
    for name in libraries:
        if not name.startswith("api-ms-win-core-") and name.removesuffix(".dll") not in WINDOWS_OWN:
            yield f"it needs {name}"

    manifest = resource(path, MANIFEST_TYPE)
    if not manifest:
        yield "it has no manifest"
    else:
        told = {element.tag: (element.text or "").strip() for element in xml.fromstring(manifest).iter()}
        for name, value in ASKED_FOR.items():
            if told.get(name) != value:
                yield f"its manifest says {told.get(name)} for {name}"

    content = resource(path, VERSION_TYPE)
    for name in ("FileVersion", "ProductVersion"):
        if version_text(content, name) != version:
            yield f"its {name} is {version_text(content, name)}"
    major, minor, patch = map(int, version.split("."))
    # Two numbers of two halves each, the lower half first.
    numbers = struct.pack("<4H", minor, major, 0, patch)
    fixed = content.find(struct.pack("<I", 0xFEEF04BD))
    if fixed < 0 or content[fixed + 8:fixed + 24] != 2 * numbers:
        yield f"the numbers of its version are not those of {version}"


if __name__ == "__main__":
    failed = False
    for mistake in mistakes(*sys.argv[1:]):
        print(f"FAILED: {sys.argv[1]}: {mistake}", file=sys.stderr)
        failed = True
    sys.exit(failed)
