#!/usr/bin/env python3
"""Doxygen's input filter for the public headers: spread.py HEADER prints the header for Doxygen.

A block `/** @name Title ... @{ */` documents all functions up to its `/** @} */` at once. Doxygen wants a comment for each
function, so every function of the block is given the block's text, and those of its parameters and results that it has.
A function's own comment stands before the block's text. A parameter that no function of its block has is a mistake and
is told on standard error; what is missing, Doxygen tells itself.
"""
import re
import sys

COMMENT = re.compile(r"/\*\*(?!<)(.*?)\*/", re.S)
FUNCTION = re.compile(r"^ZEL\w*_API\s+([^;{}]*?)(\w+)\s*\(([^;{}]*)\)\s*;", re.M)
PIECE = re.compile(r"((?:/\*\*(?!<)(?:.*?)\*/\s*)?)(^ZEL\w*_API[^;{}]*;)", re.S | re.M)


def bare(comment):
    """The text of a comment without its frame."""
    return "\n".join(re.sub(r"^\s*\* ?", "", line) for line in comment.strip().splitlines())


def commands(text):
    """Splits a text into its prose and its @param, @return and @retval commands."""
    prose, *rest = re.split(r"^\s*(?=@(?:param|return|retval)\b)", text, flags=re.M)
    return prose.strip(), [command.strip() for command in rest]


def parameters(command):
    names = re.match(r"@param(?:\[[a-z,]*\])?\s+(\w+(?:\s*,\s*\w+)*)\s+(.*)", command, re.S)
    return (re.split(r"\s*,\s*", names[1]), names[2]) if names else ([], "")


class Block:
    def __init__(self, comment):
        title, _, text = re.search(r"@name ([^\n]*)()\n?(.*)@\{", comment, re.S).groups()
        self.title = title.strip()
        self.prose, self.commands = commands(text)
        self.unused = {name for command in self.commands for name in parameters(command)[0]}

    def documented(self, piece):
        own, declaration = piece.groups()
        result, _, arguments = FUNCTION.match(declaration).groups()
        prose, lines = commands(bare(own.strip()[3:-2])) if own.strip() else ("", [])
        described = {name for line in lines for name in parameters(line)[0]}
        for command in self.commands:
            names, text = parameters(command)
            for name in names:
                if re.search(rf"\b{name}\s*(?:\[[^\]]*\]\s*)?(?:,|$)", arguments.strip()):
                    self.unused.discard(name)
                    if name not in described:
                        lines.append(f"@param {name} {text}")
            returns = not names and not any(line.startswith("@ret") for line in lines)
            if returns and result.strip() != "void":
                lines.append(command)
        text = "\n\n".join(part for part in (prose, self.prose, "\n".join(lines)) if part)
        return f"/**\n{text}\n*/\n{declaration}"


def spread(path):
    text = open(path, encoding="utf-8").read()
    done = []
    at = 0
    for comment in COMMENT.finditer(text):
        if "@name" not in comment[0] or comment.start() < at:
            continue
        end = re.compile(r"/\*\* *@\} *\*/").search(text, comment.end())
        if not end:
            sys.exit(f"{path}: the block '{comment[0][:40]}' has no end")
        block = Block(bare(comment[1]))
        inside = PIECE.sub(block.documented, text[comment.end() : end.start()])
        line = text.count("\n", 0, comment.start()) + 1
        for name in sorted(block.unused):
            print(f"{path}:{line}: warning: no function under '{block.title}' has the parameter {name}", file=sys.stderr)
        done += [text[at : comment.start()], f"/** @name {block.title}\n * @{{ */", inside]
        at = end.start()
    return "".join(done) + text[at:]


print(spread(sys.argv[1]), end="")
