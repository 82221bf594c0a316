"""What a program tells of itself with --help and --version, taken apart: manual pages and completion
are made from it, so they name what the program knows and nothing else."""

import re
import subprocess
from dataclasses import dataclass, field

# What the words for values and operands of a usage line name; others name no file.
FILES = {"FILE", "JOURNAL", "ARCHIVE"}
FOLDERS = {"FOLDER", "DIR"}

OPTION = re.compile(r"(--[a-z][a-z-]*)(?:(\[?=)([A-Z][A-Z/]*)\]?| ([A-Z][A-Z/]*))?")
OPERAND = re.compile(r"\b[A-Z][A-Z/]*\b")


@dataclass
class Option:
    name: str
    value: str = ""  # the word for its value, "" without one
    only_behind_equals: bool = False
    text: str = ""

    def kind(self):
        return kind_of([self.value])


@dataclass
class Command:
    name: str  # "" for all that a program without commands does
    usage: str
    text: str
    options: list = field(default_factory=list)
    operands: list = field(default_factory=list)

    def kind(self):
        return kind_of(self.operands)


@dataclass
class Program:
    name: str
    version: str
    description: list  # paragraphs
    commands: list
    options: list  # those that stand by themselves or go with every command


def kind_of(words):
    """"file", "folder" or "" for what the words name; who may name a file may name a folder."""
    if FILES.intersection(words):
        return "file"
    return "folder" if FOLDERS.intersection(words) else ""


def usage_options(usage):
    return [Option(name, behind or value, bool(equals))
            for name, equals, behind, value in OPTION.findall(usage)]


def command_of(name, usage, text=""):
    return Command(name, usage, text, usage_options(usage), OPERAND.findall(OPTION.sub("", usage)))


def told(program, option):
    return subprocess.run([program, option], check=True, capture_output=True, text=True).stdout


def with_commands(name, version, text):
    """"  brindle check FOLDER", and what it does in the line below."""
    summary, _, rows = text.partition("\n\n")
    commands, options = [], []
    for usage, about in re.findall(rf"^  {name} (.+)\n      (.+)$", rows, re.MULTILINE):
        if usage.startswith("-"):
            options.append(Option(usage, text=about))
        else:
            commands.append(command_of(usage.split()[0], usage, about))
    return Program(name, version, [summary], commands, options)


def without_commands(name, version, text):
    """Usage lines, paragraphs, and a row of each option that may go on below."""
    usage, *paragraphs, rows = text.rstrip("\n").split("\n\n")
    usages = re.split(rf"\s*\b{name} ", " ".join(usage.replace("Usage:", "").split()))[1:]
    every = command_of("", "\n".join(usages))
    about = {}
    last = ""
    for row in rows.splitlines():
        match = re.match(r"  (--[a-z-]+)(?: [A-Z]+)?\s{2,}(.*)", row)
        last = match[1] if match else last
        about[last] = f"{about.get(last, '')} {match[2] if match else row.strip()}".strip()
    options = {option.name: option for option in every.options}
    for option, words in about.items():
        options.setdefault(option, Option(option)).text = words
    return Program(name, version, [" ".join(part.split()) for part in paragraphs], [every],
                   list(options.values()))


def read(program):
    """The help of an executable."""
    name, version = told(program, "--version").split()[:2]
    text = told(program, "--help")
    reader = without_commands if text.startswith("Usage:") else with_commands
    result = reader(name, version, text)
    if not result.commands or not result.options or not all(o.text for o in result.options):
        raise ValueError(f"{program}: --help has another form than is read here")
    return result
