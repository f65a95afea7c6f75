"""Reads the names of the types out of the library file, as built and stripped.

Usage: type_names_section_test.py LIBRARY OBJCOPY STRIP
"""

import subprocess
import sys
import tempfile
from pathlib import Path

TYPES = """
    Status Config PsocControllerStatus PsocControllerConfig Ucd9032ControllerStatus
    Ucd9032ControllerConfig Ucd9012ControllerStatus Ucd9012ControllerConfig ControllerStatus
    KernelPanicEepromStatus ControllerConfig ExternalVoltageRail PageFaultCause PsocCause UcdCause
    VoltageRailConfig Ucd9012DiagStatus Ucd9012DiagResult Ucd9012DiagModeConfig Ucd9012DiagConfig
    Ucd9012DiagCommand ReloadCauses CauseType OperationalMode
""".split()


def expected():
    contents = b""
    for name in TYPES:
        text = b"Hardware::Ucd9012::" + name.encode() + b"\0"
        if len(text) >= 32:
            contents += b"\0" * (-len(contents) % 32)
        contents += text
    return contents


def section(objcopy, library, folder):
    out = Path(folder) / "section"
    subprocess.run([objcopy, "-O", "binary", "--only-section=.zol.type", library, out], check=True)
    return out.read_bytes()


def flags(library):
    listing = subprocess.run(["readelf", "-SW", library], check=True, capture_output=True, text=True)
    line = next(line for line in listing.stdout.splitlines() if " .zol.type " in line)
    return line.split("]", 1)[1].split()[6]


def main():
    library, objcopy, strip = sys.argv[1:]
    assert len(TYPES) == 24
    with tempfile.TemporaryDirectory() as folder:
        assert section(objcopy, library, folder) == expected(), "contents as built"
        stripped = Path(folder) / "stripped.so"
        subprocess.run([strip, "-o", stripped, library], check=True)
        assert section(objcopy, stripped, folder) == expected(), "contents of the stripped file"
        assert "W" in flags(stripped) and "A" in flags(stripped), "a writable section that is loaded"


if __name__ == "__main__":
    main()
