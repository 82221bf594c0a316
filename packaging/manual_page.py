#!/usr/bin/env python3
"""Writes the manual page of a program, compressed, from what the program tells with --help.

    manual_page.py PROGRAM DATE SHARE PAGE.1.gz

DATE is that of the version, 2026-01-31; SHARE the folder that the games are installed below.
"""

import gzip
import re
import sys

sys.dont_write_bytecode = True
import program_help  # noqa: E402

PURPOSE = {"brindle": "play and check card games on the terminal",
           "brindlemoor": "play card games that anyone can write"}

# What --help does not say: a title, and rows of a term and its words.
MORE = {
    "brindle": [
        ("FILES", [("SHARE/brindle/games", "the games that come with the program")]),
        ("EXIT STATUS", [
            ("0", "All went well."),
            ("1", "There are findings, a test failed or a match could not be played."),
            ("2", "The command line is wrong, or what it names could not be read or written.")]),
        ("EXAMPLES", [
            ("brindle auto SHARE/brindle/games --seed 7 --pages /tmp/pages",
             "plays a match; its report pages lie in /tmp/pages then."),
            ("brindle new mygame", "begins a game of your own."),
            ("brindle watch mygame", "checks and plays it whenever you save a file.")]),
    ],
    "brindlemoor": [
        ("FILES", [
            ("~/.local/share/brindlemoor", "your games and players"),
            ("SHARE/brindlemoor/games", "the games that come with the program")]),
        ("EXIT STATUS", [
            ("0", "All went well."),
            ("1", "The program could not start or could not go on; it has said why."),
            ("2", "The command line is wrong.")]),
    ],
}
OTHER = {"brindle": "brindlemoor", "brindlemoor": "brindle"}


def plain(text):
    """Text as the formatter takes it."""
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return "\\&" + text if text.startswith((".", "'")) else text


def unbroken(usage):
    """What stands in brackets stays in one line."""
    depth, result = 0, ""
    for character in usage:
        depth += {"[": 1, "]": -1}.get(character, 0)
        result += "\\ " if character == " " and depth else character
    return result


def marked(usage):
    """A usage line: what is typed as it stands bold, what stands for something else slanted."""
    bold = re.sub(r"(?<![\w-])(--[a-z-]+|[a-z]+)", r"<b>\1<r>", usage)
    slanted = re.sub(r"\b([A-Z][A-Z/]*)\b", r"<i>\1<r>", bold)
    line = unbroken(slanted).replace("-", "\\-")
    for mark, font in (("<b>", "\\fB"), ("<i>", "\\fI"), ("<r>", "\\fR")):
        line = line.replace(mark, font)
    return line


def terms(rows):
    return [line for term, words in rows for line in (".TP", f"\\fB{plain(term)}\\fR", plain(words))]


def page(program, date, share):
    name = program.name
    lines = [f'.TH {name.upper()} 1 {date} "{name} {program.version}" "User Commands"', ".nh", ".ad l",
             ".SH NAME", f"{name} \\- {PURPOSE[name]}", ".SH SYNOPSIS"]
    if program.commands[0].name:
        lines += [f"\\fB{name}\\fR \\fICOMMAND\\fR [\\fIARGUMENT\\fR...]"]
    else:
        for usage in program.commands[0].usage.split("\n"):
            lines += [f"\\fB{name}\\fR {marked(usage)}", ".br"]
        lines.pop()
    lines.append(".SH DESCRIPTION")
    for paragraph in program.description:
        lines += [".PP", plain(paragraph)]
    lines.pop(lines.index(".SH DESCRIPTION") + 1)
    if program.commands[0].name:
        lines.append(".SH COMMANDS")
        for command in program.commands:
            lines += [".PP", marked(command.usage), ".RS 4", plain(command.text), ".RE"]
        lines.remove(".PP")
    lines += [".SH OPTIONS"]
    lines += terms((f"{option.name} {option.value}".rstrip(), option.text) for option in program.options)
    for title, rows in MORE[name]:
        lines += [f'.SH "{title}"', *terms((term.replace("SHARE", share), words) for term, words in rows)]
    lines += [".SH SEE ALSO", f".BR {OTHER[name]} (1)"]
    return "\n".join(lines) + "\n"


def main():
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    executable, date, share, target = sys.argv[1:]
    text = page(program_help.read(executable), date, share)
    with open(target, "wb") as file:
        file.write(gzip.compress(text.encode(), 9, mtime=0))


if __name__ == "__main__":
    main()
