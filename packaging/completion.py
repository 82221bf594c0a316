#!/usr/bin/env python3
"""Writes what a shell completes behind a program's name, from what the program tells with --help.

    completion.py PROGRAM bash|zsh FILE
"""

import sys

sys.dont_write_bytecode = True
import program_help  # noqa: E402

BASH_KINDS = {"file": "-f", "folder": "-d", "": "none"}
ZSH_KINDS = {"file": "_files", "folder": "_files -/", "": ""}

BASH = """\
# What bash completes behind {name}.
_{name}() {{
  local word=${{COMP_WORDS[COMP_CWORD]}} before=${{COMP_WORDS[COMP_CWORD - 1]}}
  local words="" operand=none value=""
  COMPREPLY=()
  # An option, "=" and its value are three words.
  if [[ $word == "=" ]]; then
    before+="=" word=""
  elif [[ $before == "=" ]]; then
    before="${{COMP_WORDS[COMP_CWORD - 2]}}="
  fi
{choice}
  [[ -z $value && $word != -* ]] && value=$operand
  if [[ -z $value ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
  elif [[ $value != none ]]; then
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen "$value" -- "$word")
  fi
}}
complete -F _{name} {name}
"""


def every_option(program, command):
    """Those of a command, or all of a program without commands."""
    return command.options if command.name else program.options


def bash_rows(program, command, indent):
    options = every_option(program, command)
    rows = [f'words="{" ".join(option.name for option in options)}"',
            f"operand={BASH_KINDS[command.kind()]}"]
    cases = []
    for option in options:
        if option.value:
            words = f"{option.name}=" if option.only_behind_equals else f"{option.name} | {option.name}="
            cases.append(f"  {words}) value={BASH_KINDS[option.kind()]} ;;")
    if cases:
        rows += ['case "$before" in', *cases, "esac"]
    return [indent + row for row in rows]


def bash(program):
    if not program.commands[0].name:
        return BASH.format(name=program.name, choice="\n".join(bash_rows(program, program.commands[0], "  ")))
    first = [command.name for command in program.commands] + [option.name for option in program.options]
    rows = ["  if ((COMP_CWORD == 1)); then", f'    words="{" ".join(first)}" operand=""', "  fi",
            '  case "$COMP_CWORD ${COMP_WORDS[1]}" in', "    1\\ *) ;;"]
    for command in program.commands:
        rows += [f"    *\\ {command.name})", *bash_rows(program, command, "      "), "      ;;"]
    return BASH.format(name=program.name, choice="\n".join(rows + ["  esac"]))


def quoted(text):
    return "'" + text.replace("'", "'\\''") + "'"


def zsh_words(text):
    """A text in a specification, where brackets and colons have a meaning."""
    for character in "\\:[]":
        text = text.replace(character, "\\" + character)
    return text


def zsh_arguments(program, command):
    specifications = []
    for option in every_option(program, command):
        text = f"[{zsh_words(option.text)}]" if option.text else ""
        if option.only_behind_equals:
            specifications.append(f"{option.name}=-{text}::{option.value}:{ZSH_KINDS[option.kind()]}")
        elif option.value:
            specifications.append(f"{option.name}={text}:{option.value}:{ZSH_KINDS[option.kind()]}")
        else:
            specifications.append(option.name + text)
    if command.operands:
        specifications.append(f"*:{command.operands[0]}:{ZSH_KINDS[command.kind()]}")
    return "_arguments " + " ".join(map(quoted, specifications))


def zsh(program):
    lines = [f"#compdef {program.name}", f"# What zsh completes behind {program.name}."]
    if not program.commands[0].name:
        return "\n".join([*lines, zsh_arguments(program, program.commands[0])]) + "\n"
    lines += ["local -a commands", "commands=("]
    lines += ["  " + quoted(f"{command.name}:{command.text}") for command in program.commands]
    lines += ["  " + quoted(f"{option.name}:{option.text}") for option in program.options]
    lines += [")", "if (( CURRENT == 2 )); then", "  _describe command commands", "  return", "fi",
              "shift words", "(( CURRENT-- ))", "case $words[1] in"]
    lines += [f"  {command.name}) {zsh_arguments(program, command)} ;;" for command in program.commands
              if command.options or command.operands]
    return "\n".join([*lines, "esac"]) + "\n"


def main():
    if len(sys.argv) != 4 or sys.argv[2] not in ("bash", "zsh"):
        sys.exit(__doc__)
    executable, shell, target = sys.argv[1:]
    program = program_help.read(executable)
    with open(target, "w", encoding="utf-8") as file:
        file.write(bash(program) if shell == "bash" else zsh(program))


if __name__ == "__main__":
    main()
