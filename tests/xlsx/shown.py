"""What a spreadsheet shows for a number under the formats that workbooks use."""

import re
from decimal import ROUND_HALF_UP, Decimal


def split(code):
    """The sections of a number format, parted at semicolons outside of quotes."""
    return re.findall(r'(?:"[^"]*"|[^";])+', code)


def holds(condition, number):
    sign, limit = condition[0], float(condition[1:])
    return {"<": number < limit, ">": number > limit, "=": number == limit}[sign]


def choose(code, number):
    """The section for a number, and whether it shows the minus by itself."""
    sections = split(code)
    condition = re.match(r"\[([<>=][^\]]+)\]", sections[0])
    if condition:
        section = sections[0][condition.end():] if holds(condition[1], number) else sections[1]
        return section, number < 0
    if len(sections) == 2 and number < 0:
        return sections[1], False
    return sections[0], number < 0


def digits(number, places, leads):
    text = str(abs(number).quantize(Decimal(1).scaleb(-places), ROUND_HALF_UP))
    return text[1:] if not leads and text.startswith("0.") else text


def figure(number, pattern):
    """A pattern such as "0.00", ".000" or "0.0E+00"."""
    exact = Decimal(f"{abs(number):.14e}")  # 15 digits are all that a spreadsheet looks at
    mantissa = pattern.partition("E")[0]
    places = len(mantissa.partition(".")[2])
    if "E" not in pattern:
        return digits(exact, places, pattern.startswith("0"))
    power = exact.adjusted() if exact else 0
    shown = digits(exact.scaleb(-power), places, True)
    if shown.startswith("10"):
        power += 1
        shown = digits(exact.scaleb(-power), places, True)
    return f"{shown}e{'-' if power < 0 else '+'}{abs(power):02}"


def shown(number, code):
    """The text of a cell; a minus is a hyphen, an exponent has a small e."""
    if code == "General":
        return f"{number:.11g}"
    section, has_minus = choose(code, number)
    parts = re.findall(r'"([^"]*)"|([0.E+\-]+)', section)
    text = "".join(words or (figure(number, pattern) if pattern != "-" else "-") for words, pattern in parts)
    return ("-" if has_minus and re.search("[1-9]", text) else "") + text
