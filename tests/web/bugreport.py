# SPDX-License-Identifier: Apache-2.0
"""A bugreport of a running camera, from the examples."""
RULE = "=" * 56


def section(title, text):
    return f"------ {title} ------\n{text}------ 0.100s was the duration of '{title.split(' (')[0]}' ------\n\n"


def compose(dump, log):
    """Returns the text of a bugreport. Its log has a uid column, which `log` lacks."""
    lines = "".join(f"{line[:18]}  1047{line[18:]}\n" if line[:1].isdigit() else f"{line}\n" for line in log.splitlines())
    service = f"{'-' * 79}\nDUMP OF SERVICE media.camera:\n{dump}--------- 0.412s was the duration of dumpsys media.camera, ending at: 2024-03-05 10:11:40\n"
    return (f"{RULE}\n== dumpstate: 2024-03-05 10:11:40\n{RULE}\n\nBuild: UP1A.000000.001\n\n" + section("SYSTEM LOG (logcat -v threadtime -v uid -d *:v)", lines) +
            section("SYSTEM PROPERTIES (getprop)", "[persist.vendor.camera.x]: [1]\n[ro.build.version.release]: [14]\n") + section("DUMPSYS (/system/bin/dumpsys)", service))
