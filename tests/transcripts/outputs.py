# SPDX-License-Identifier: Apache-2.0
"""Commands for transcripts: they run many commands of qzcam in one start, and shorten outputs.

    each                 runs each line of its input, "COMMAND<tab>LABEL", in one shell of qzcam, and prints "@LABEL" before
                         each output
    joined [WORD]        prints the label and the output of each command on one line, with the word after each of its lines
    compact              prints JSON with one object or list of values on a line
    changed FILE [MOST]  prints how each output differs from a file, with at most MOST lines that are missing and MOST that
                         are new; labels with the same differences are together
"""
import re
import subprocess
import sys


def each():
    rows = [line.partition("\t")[::2] for line in sys.stdin.read().splitlines()]
    # The message about an input that does not exist separates the outputs.
    session = "".join(f"show @{number}\n{command}\n" for number, (command, _) in enumerate(rows))
    shell = subprocess.run(["qzcam", "shell"], input=session, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                           encoding="utf-8", errors="surrogateescape")
    for line in shell.stdout.split("\n")[2:-1]:
        separator = re.match(r"@(\d+): cannot read it: ", line)
        print("@" + rows[int(separator[1])][1] if separator else line)


def outputs():
    """Returns pairs of a label and the lines of its output that are not empty."""
    found = []
    for line in sys.stdin.read().split("\n"):
        if line.startswith("@"):
            found.append((line[1:], []))
        elif line and found:
            found[-1][1].append(line)
    return found


def joined(word=""):
    for label, lines in outputs():
        print(label + ":" + "".join(" " + re.sub("  +", " ", line).removeprefix(" ") + word for line in lines))


def compact():
    text = re.sub("  +", " ", sys.stdin.read().replace("\n", " "))
    while (closed := re.sub(r"([]}],?) ([]}])", r"\1\2", text)) != text:
        text = closed
    print(re.sub(r"([]}],) ", r"\1\n", text.strip()))


def changed(name, most="99"):
    with open(name, encoding="utf-8", errors="surrogateescape") as file:
        usual = [line for line in file.read().split("\n") if line]
    labels = {}
    for label, lines in outputs():
        missing = ["< " + line for line in usual if line not in set(lines)]
        new = ["> " + line for line in lines if line not in set(usual)]
        labels.setdefault(tuple(missing[:int(most)] + new[:int(most)]), []).append(label)
    for differences, same in labels.items():
        print(*("== " + label for label in same), *differences, sep="\n")


for stream in (sys.stdin, sys.stdout):
    stream.reconfigure(encoding="utf-8", errors="surrogateescape")
globals()[sys.argv[1]](*sys.argv[2:])
