#!/usr/bin/env python3
"""Writes floating_point_table.inc: what floating points must come to, worked out in exact rational arithmetic.

    python3 floating_point_table.py > floating_point_table.inc

Nothing here uses a machine float.  A number is a significand of 64 bits and a power of two, rounded by this script's own
rounding; texts are cut from exact quotients.  Where the exact value lies so near to a tie or to a power of ten that the
rounding of a power decides, the sample is left out: there the mathematics library has the word.
"""
import random
import sys
from fractions import Fraction as F

GREATEST = F(2) ** 16384 - F(2) ** (16384 - 64)
LEAST_NORMAL = F(2) ** -16382
LEAST = F(2) ** (-16382 - 63)
INVALID, DIVIDED, OVERFLOW, UNDERFLOW, INEXACT = 1, 4, 8, 16, 32
random.seed(20)
sys.set_int_max_str_digits(0)


def log2_floor(x):
    n = x.numerator.bit_length() - x.denominator.bit_length()
    return n if F(2) ** n <= x else n - 1


def nearest(x):
    """The nearest integer, of two the even one."""
    return round(x)


def rounded(x):
    """The number of the format nearest to x, None for infinity, and the exceptions of rounding to it."""
    if x == 0:
        return F(0), 0
    free = F(2) ** (log2_floor(abs(x)) - 63)
    unbounded = nearest(x / free) * free
    if abs(unbounded) > GREATEST:
        return None, OVERFLOW | INEXACT
    unit = max(free, LEAST)
    result = nearest(x / unit) * unit
    flags = INEXACT if result != x else 0
    if flags and abs(unbounded) < LEAST_NORMAL:
        flags |= UNDERFLOW
    return result, flags


def unit_in_last_place(x):
    x = abs(x)
    if x <= LEAST_NORMAL:
        return LEAST_NORMAL
    n = log2_floor(x)
    return max(F(2) ** (n - 64 if x == F(2) ** n else n - 63), LEAST_NORMAL)


class Doubtful(Exception):
    pass


def exact_decade(x):
    n = len(str(x.numerator)) - len(str(x.denominator))
    while F(10) ** n > x:
        n -= 1
    while F(10) ** (n + 1) <= x:
        n += 1
    return n


def decade(x):
    n = exact_decade(x)
    for power in (n, n + 1):
        distance = abs(x / F(10) ** power - 1)
        if distance < F(1, 2 ** 58) and not (distance == 0 and 0 <= power <= 27):
            raise Doubtful
    return n


def place(v, t):
    return decade(max(t, unit_in_last_place(v)) / F(0.95))


class TooLarge(Exception):
    pass


def standard(v, t):
    sign = "-" if v < 0 else ""
    v = abs(v)
    p = place(v, t)
    half = F(10) ** p / 2
    if abs(v / half - 1) < F(1, 2 ** 58) and p != 0:
        raise Doubtful
    if v <= half:
        return sign + "0" + ("." + "0" * min(-p, 64) if p < 0 else "")
    m = max(0, exact_decade(v)) - 63
    if m > 0:
        raise TooLarge
    q = max(p, m)
    exact = v / F(10) ** q
    n = nearest(exact)
    if q != 0 and abs(abs(exact - n) - F(1, 2)) < exact / 2 ** 58:
        raise Doubtful
    digits = str(n)
    if q >= 0:
        return sign + digits + "0" * q
    if n == 0:
        return sign + "." + "0" * -q
    digits = digits.rjust(-q, "0")
    return sign + digits[:q] + "." + digits[q:]


def scientific(v, t):
    e = max(place(v, t), decade(abs(v)))
    if rounded(v / F(10) ** e)[0] == 0:
        return "0.0e%+d" % e
    mantissa = standard(v / F(10) ** e, t / F(10) ** e)
    # The quotient's own last place is the machine's to tell.
    if t / F(10) ** e < 8 * unit_in_last_place(v / F(10) ** e):
        raise Doubtful
    return mantissa + ("" if e == 0 else "e%+d" % e)


def text(v, t):
    return standard(v, t) if abs(v) < 10 ** 73 and place(v, t) > -73 else scientific(v, t)


def number(x):
    """An initialiser: the significand and the power of two, or an infinity."""
    if x is None:
        return "{1, 20000}"
    if x == 0:
        return "{0, 0}"
    e = max(log2_floor(abs(x)) - 63, -16445)
    m = x / F(2) ** e
    assert m.denominator == 1 and abs(m) < 2 ** 64
    return "{%dU, %d%s}" % (abs(m), e, ", true" if m < 0 else "")


def some_number(low=-60, high=60):
    bits = random.choice((1, 3, 8, 24, 53, 63, 64))
    m = random.getrandbits(bits) | 1 << (bits - 1)
    x = m * F(2) ** (random.randint(low, high) - bits)
    return -x if random.random() < 0.4 else x


def operations():
    pairs = [(some_number(), some_number()) for _ in range(60)]
    pairs += [(some_number(-3, 3), some_number(-3, 3)) for _ in range(40)]
    pairs += [(some_number(-16300, 16300), some_number(-16300, 16300)) for _ in range(60)]
    pairs += [(some_number(8150, 8250), some_number(8150, 8250)) for _ in range(20)]
    pairs += [(some_number(-8260, -8150), some_number(-8260, -8150)) for _ in range(40)]
    pairs += [(some_number(-16370, -16300), some_number(-16370, -16300)) for _ in range(20)]
    pairs += [(GREATEST, GREATEST), (GREATEST, F(1)), (GREATEST, F(2) ** (16384 - 65)), (LEAST_NORMAL, F(1, 2)),
              (LEAST_NORMAL, F(3, 2)), (LEAST, F(1, 2)), (LEAST, LEAST), (F(1), F(3)), (F(1), F(10))]
    for a, b in pairs:
        a, b = rounded(a)[0], rounded(b)[0]
        if a and b:
            for sign, exact in (("+", a + b), ("-", a - b), ("*", a * b), ("/", a / b)):
                result, flags = rounded(exact)
                infinite = result is None and exact < 0
                yield "{'%s', %s, %s, %s, %d}" % (sign, number(a), number(b),
                                                  "{1, 20000, true}" if infinite else number(result), flags)


def streams():
    for _ in range(60):
        numbers = [rounded(some_number(-8, 8))[0] for _ in range(6)]
        total, product, total_flags, product_flags = F(0), F(1), 0, 0
        for n in numbers:
            total, raised = rounded(total + n)
            total_flags |= raised
            product, raised = rounded(product * n)
            product_flags |= raised
        yield "{{%s}, %s, %d, %s, %d}" % (", ".join(map(number, numbers)), number(total), total_flags,
                                          number(product), product_flags)


def texts():
    def row(v, t):
        v, t = rounded(v)[0], rounded(t)[0]
        if not v or t is None:
            return None
        forms = []
        for form in (standard, scientific, text):
            try:
                forms.append('"%s"' % form(v, t))
            except TooLarge:
                forms.append("nullptr")
            except Doubtful:
                forms.append('""')
        return "{%s, %s, %s}" % (number(v), number(t), ", ".join(forms))

    samples = []
    for _ in range(120):
        samples.append((some_number(-30, 70), abs(some_number(-30, 40))))
    for _ in range(80):
        samples.append((some_number(-300, 300), abs(some_number(-320, 250))))
    for _ in range(60):
        samples.append((some_number(-16300, 16300), abs(some_number(-16300, 16300))))
    for _ in range(40):
        v = some_number(-16000, 16000)
        samples.append((v, abs(v) * F(10) ** -random.randint(0, 15)))
    for _ in range(60):
        v = some_number(180, 245)
        samples.append((v, abs(v) * F(10) ** -random.randint(-3, 22)))
    for _ in range(60):
        v = some_number(-250, -190)
        samples.append((v, abs(v) * F(10) ** -random.randint(-3, 22)))
    for k in range(0, 20):
        samples += [(F(10) ** k, F(1)), (F(10) ** k - 1, F(1)), (F(10) ** k + 1, F(1)), (F(5 * 10 ** k), F(10) ** (k + 1)),
                    (F(15 * 10 ** k), F(10) ** (k + 1))]
    for half in range(-9, 12, 2):
        samples.append((F(half, 2), F(1)))
    samples += [(v, -abs(t)) for v, t in samples[:40]]
    return filter(None, (row(v, t) for v, t in samples))


def numerals():
    def row(numeral, whole, fraction, exponent, negative):
        digits = whole + fraction
        lowest = exponent - len(fraction)
        exact = int(digits) * F(10) ** lowest
        value = rounded(exact)[0]
        plain = numeral.strip("+-").isdigit()
        zeros = len(digits) - len(digits.rstrip("0"))
        threshold = F(10) ** (min(zeros, len(whole) - 1) if plain else lowest)
        threshold = max(threshold, unit_in_last_place(value)) if value is not None else None
        flags = OVERFLOW | INEXACT if value is None else UNDERFLOW | INEXACT if exact and value < LEAST_NORMAL else 0
        # Sums of these few digits at whole places are exact.
        sure = lowest >= 0 and exact < 2 ** 64
        return '{"%s", %s, %s, %d, %s}' % (numeral, number(value if value is None or not negative else -value),
                                           number(rounded(threshold)[0] if threshold is not None else None), flags,
                                           "true" if sure else "false")

    for _ in range(200):
        def run(most):
            return "".join(random.choice("0001234567899") for _ in range(random.randint(0, most)))
        whole, fraction = run(random.choice((3, 20, 60))), run(random.choice((0, 3, 20)))
        exponent = random.choice((0, 0, random.randint(-30, 30), random.randint(-4800, 4800)))
        if not whole + fraction:
            whole = "0"
        negative = random.random() < 0.3
        numeral = ("-" if negative else random.choice(("", "", "+"))) + whole
        if fraction or random.random() < 0.2:
            numeral += "." + fraction
        if exponent or random.random() < 0.2:
            numeral += random.choice("eE") + random.choice(("%d", "%+d", "%03d")) % exponent
        exact = int(whole + fraction) * F(10) ** (exponent - len(fraction))
        if rounded(exact)[0] is not None and not (exact and exact < 4 * LEAST_NORMAL) and not (
                negative and not exact):
            yield row(numeral, whole, fraction, exponent, negative)


def table(kind, name, rows):
    print("constexpr %s %s[] = {" % (kind, name))
    for r in rows:
        print("    %s," % r)
    print("};")


print("// Written by floating_point_table.py; not to be edited.")
table("Operation", "kOperations", operations())
table("Written", "kWritten", texts())
table("Numeral", "kNumerals", numerals())
table("Stream", "kStreams", streams())
