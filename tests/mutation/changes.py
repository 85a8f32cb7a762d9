"""The changes that are made to a source text, one at a time."""

import re
from dataclasses import dataclass


@dataclass(frozen=True)
class Change:
    start: int  # offsets in the text: what is replaced
    end: int
    replacement: str
    name: str


# Formatted code has a space on each side of a binary operator and of no other.
SWAPS = {
    '<': ['<=', '>='], '<=': ['<', '>'], '>': ['>=', '<='], '>=': ['>', '<'],
    '==': ['!='], '!=': ['=='], '&&': ['||'], '||': ['&&'],
    '+': ['-'], '-': ['+'], '*': ['/'], '/': ['*'], '%': ['*'],
    '<<': ['>>'], '>>': ['<<'], '&': ['|'], '|': ['&'], '^': ['|'],
    '+=': ['-='], '-=': ['+='], '/=': ['*='], '*=': ['/='], '^=': ['|='], '|=': ['&='], '&=': ['|='],
}
OPERATOR = re.compile(r'(?<=\s)(%s)(?=\s)' % '|'.join(
    re.escape(text) for text in sorted(SWAPS, key=len, reverse=True)))
STEP = re.compile(r'\+\+|--')
NUMBER = re.compile(r'(?<![\w.])(0x[0-9A-Fa-f]+|\d+)(?=[uUlL]*\b)(?!\.)')
TRUTH = re.compile(r'\b(true|false)\b')
NOT = re.compile(r'!(?!=)')
CONDITION = re.compile(r'\b(?:if|while) \(')
CHOICE = re.compile(r'\s\?\s')
RETURN = re.compile(r'\breturn\s+([^;{}]+);')
HEADER = re.compile(r'\s*(?:else\b|default:|case [^:]+:|(?:if|for|while|switch) (?=\())')
EXPRESSION = re.compile(
    r'(?:\+\+|--|\*)?[A-Za-z_]\w*(?:(?:\.|->|::)\w+|\[[^\]]*\]|\((?:[^()]|\((?:[^()]|\([^()]*\))*\))*\))*'
    r'(?:\s*(?:[-+|&^*/]?=)\s|\s*(?:\+\+|--)?$)')
NOT_CODE = re.compile(
    r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\])+\'|^[ \t]*#(?:\\\n|[^\n])*',
    re.DOTALL | re.MULTILINE)


def code_of(text):
    """The text with blanks for comments, literals of text and preprocessor lines."""
    return NOT_CODE.sub(lambda found: re.sub(r'[^\n]', ' ', found.group()), text)


def closing(code, opening):
    """Index of the parenthesis that closes the one at `opening`."""
    depth = 0
    for i in range(opening, len(code)):
        depth += {'(': 1, ')': -1}.get(code[i], 0)
        if depth == 0:
            return i
    raise ValueError('unbalanced parentheses')


def operators(code):
    for found in OPERATOR.finditer(code):
        for other in SWAPS[found.group()]:
            yield Change(found.start(), found.end(), other, f'{found.group()} becomes {other}')
    for found in STEP.finditer(code):
        other = '--' if found.group() == '++' else '++'
        yield Change(found.start(), found.end(), other, f'{found.group()} becomes {other}')


def constants(code):
    for found in NUMBER.finditer(code):
        digits = found.group(1)
        value = int(digits, 16 if digits.startswith('0x') else 10) + 1
        other = hex(value) if digits.startswith('0x') else str(value)
        yield Change(found.start(1), found.end(1), other, f'{digits} becomes {other}')
    for found in TRUTH.finditer(code):
        other = 'false' if found.group() == 'true' else 'true'
        yield Change(found.start(), found.end(), other, f'{found.group()} becomes {other}')


def conditions(code):
    for found in CONDITION.finditer(code):
        start, end = found.end(), closing(code, found.end() - 1)
        yield Change(start, end, f'!({code[start:end]})', 'condition negated')
    for found in NOT.finditer(code):
        yield Change(found.start(), found.end(), '', '! dropped')
    for found in CHOICE.finditer(code):
        start = start_of_choice(code, found.start())
        yield Change(start, found.start(), f'!({code[start:found.start()]})', 'choice negated')


def start_of_choice(code, end):
    """Where the condition before a ? at `end` begins."""
    depth = 0
    for i in range(end - 1, -1, -1):
        depth += {')': 1, '(': -1, ']': 1, '[': -1}.get(code[i], 0)
        opens = depth < 0
        begins = depth == 0 and (code[i] in ',;{}' or re.search(r'(?:\s=\s|\breturn )$', code[:i + 1]))
        if opens or begins:
            start = i + 1
            return start + len(code[start:end]) - len(code[start:end].lstrip())
    return 0


def results(code):
    for found in RETURN.finditer(code):
        value = found.group(1)
        if value in ('true', 'false'):
            continue
        yield Change(found.start(1), found.end(1), '{}', 'empty result')
        if not NUMBER.fullmatch(value):
            yield Change(found.start(1), found.end(1), f'!({value})', 'result negated')


def statements(code):
    for end in (found.start() for found in re.finditer(';', code)):
        start = start_of_statement(code, end)
        statement = code[start:end].strip()
        start = end - len(code[start:end].lstrip())
        if re.fullmatch(r'return|break|continue|delete \w+', statement) or EXPRESSION.match(statement):
            words = ' '.join(statement.split())
            yield Change(start, end, '', f'"{words}" dropped')


def start_of_statement(code, end):
    start = max(code.rfind(mark, 0, end) for mark in ';{}') + 1
    while True:
        header = HEADER.match(code, start, end)
        if not header:
            return start
        start = header.end()
        if code[start] == '(':
            try:
                start = closing(code, start) + 1
            except ValueError:
                return end
            if start > end:  # a semicolon inside the head of a for loop
                return end


def changes_of(text):
    """All changes, in the order of the text."""
    code = code_of(text)
    kinds = (operators, constants, conditions, results, statements)
    found = {change for kind in kinds for change in kind(code) if change.start < change.end}
    return sorted(found, key=lambda change: (change.start, change.end, change.replacement))
