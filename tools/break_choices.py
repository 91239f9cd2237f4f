"""Writes a file with all of its breaks in it, of which a number chooses one when the program runs.

A function's body is copied for each of its breaks. A value outside of functions asks for the number where it stands. So that it may,
`constexpr` becomes `const`, and `inline` in front of a function, but for the names that the compiler turns out to need.
"""
import bisect

PREAMBLE = "extern int breakChosen, breakTraced; void breakSeen(int); int breakAt(int);"
STOPS = {",", ";", "=", "?", ":", "return", "(", "[", "{"}
ENDS = {",", ";", "?", ":", ")", "]", "}"}


def edited(code, edits, begin=0, end=None):
    """The code between two offsets with all `edits` made."""
    end = len(code) if end is None else end
    pieces = []
    for first, last, text in sorted(edits):
        pieces += [code[begin:first], text]
        begin = last
    return "".join(pieces + [code[begin:end]])


class Choices:
    """One file that is about to be written with its breaks."""

    def __init__(self, code, finder, kept=()):
        self.code, self.finder, self.tokens = code, finder, finder.tokens
        self.offsets = [token.at for token in self.tokens]
        self.kept = set(kept)
        self.loosened = set()  # names that the compiler cannot have as constants
        self.edits = list(self.looseningEdits())

    def looseningEdits(self):
        bodies = [(function.opened, function.closed) for function in self.finder.layout.functions]
        for index, token in enumerate(self.tokens):
            if token.text != "constexpr" or self.tokens[index - 1].text == "if":
                continue
            name, isFunction = self.declaredAt(index)
            if name in self.kept:
                continue
            self.loosened.add(name)
            head = self.headOf(index)
            if isFunction:
                text = "" if "inline" in head else "inline"
            else:
                text = "" if "const" in head else "const"
                if "static" in head and "inline" not in head and not any(first < index < last for first, last in bodies):
                    text += " inline"
            yield token.at, token.end, text

    def declaredAt(self, index):
        """The name that is declared with the `constexpr` at `index`, and whether it is a function's."""
        name = ""
        for token in self.tokens[index + 1 :]:
            if token.text in ("=", "{", ";", "(", "["):
                return name, token.text == "("
            name = token.text if token.kind == "name" and not token.template else name
        return name, False

    def headOf(self, index):
        """The words around a `constexpr`, from the end of what stands in front of it to the declared name."""
        first = last = index
        while first > 0 and self.tokens[first - 1].kind == "name":
            first -= 1
        while self.tokens[last].text not in ("=", "{", ";", "("):
            last += 1
        return {token.text for token in self.tokens[first:last] if not token.template}

    def isFixed(self, one):
        """Whether the break is in what the compiler itself works out."""
        return self.isKept(one.function or one.value)

    def isKept(self, part):
        return part.fixed or part.constant and part.name in self.kept

    def alone(self, one):
        """The file with one break, which needs no number."""
        return edited(self.code, one.edits + self.apartFrom(one.edits))

    def apartFrom(self, edits, begin=0, end=None):
        """What loosens constants between two offsets, where the edits of a break leave it standing."""
        end = len(self.code) if end is None else end
        return [edit for edit in self.edits if begin <= edit[0] and edit[1] <= end
                and all(edit[1] <= first or last <= edit[0] for first, last, _ in edits)]

    def together(self, breaks, numberOf):
        """The file with all of `breaks`, and which of its lines are which breaks'."""
        pieces, owners, place = [PREAMBLE, "\n"], {}, 0
        line = 2
        for begin, end, parts in sorted(self.bodies(breaks, numberOf) + self.values(breaks, numberOf) + self.plainEdits(),
                                        key=lambda stretch: stretch[:2]):
            if begin < place:
                continue
            for text, mine in [(self.code[place:begin], []), *parts]:
                pieces.append(text)
                if mine:
                    owners.update({number: mine for number in range(line, line + text.count("\n"))})
                line += text.count("\n")
            place = end
        return "".join(pieces) + self.code[place:], owners

    def plainEdits(self):
        return [(begin, end, [(text, [])]) for begin, end, text in self.edits]

    def bodies(self, breaks, numberOf):
        """Each function's body becomes the default of a switch."""
        found = []
        for function in self.finder.layout.functions:
            if self.isKept(function):
                continue
            begin, end = self.tokens[function.opened].at, self.tokens[function.closed].end
            parts = [("{ if (breakTraced) breakSeen(%d); switch (breakChosen) {\n" % numberOf(function), [])]
            for one in breaks:
                if one.function is function:
                    copy = edited(self.code, one.edits + self.apartFrom(one.edits, begin, end), begin, end)
                    parts.append((f"case {one.number}:\n{copy}\nbreak;\n", [one]))
            parts.append(("default:\n" + edited(self.code, self.apartFrom([], begin, end), begin, end) + "\n} }", []))
            found.append((begin, end, parts))
        return found

    def values(self, breaks, numberOf):
        """Each number, text or expression becomes a question with several answers."""
        regions = []  # [first token, last token, breaks]
        outside = [(*self.region(one), one) for one in breaks if not one.function]
        for first, last, one in sorted(outside, key=lambda found: found[:2]):
            if regions and first <= regions[-1][1]:
                regions[-1][1] = max(last, regions[-1][1])
                regions[-1][2].append(one)
            else:
                regions.append([first, last, [one]])
        found = []
        for first, last, mine in regions:
            begin, end = self.tokens[first].at, self.tokens[last].end
            text = "\n("
            for one in mine:
                other = edited(self.code, one.edits + self.apartFrom(one.edits, begin, end), begin, end)
                text += f"breakAt({numberOf(one.value)}) == {one.number} ? ({other}) :\n"
            text += f"({edited(self.code, self.apartFrom([], begin, end), begin, end)})\n)"
            found.append((begin, end, [(text + "\n", mine)]))
        return found

    def region(self, one):
        """The first and the last token of the expression that a break outside of functions changes."""
        first = last = bisect.bisect_right(self.offsets, one.edits[0][0]) - 1
        token = self.tokens[first]
        if len(one.edits) > 1:  # a condition with "!(" in front of it and ")" behind it
            last = bisect.bisect_left(self.offsets, one.edits[-1][0]) - 1
        elif token.kind == "text":
            while self.tokens[first - 1].kind == "text":
                first -= 1
            while self.tokens[last + 1].kind == "text":
                last += 1
        elif token.kind == "number" and self.tokens[first - 1].text == "-" and self.tokens[first - 1].end == token.at:
            first -= 1
        elif token.kind == "sign":
            first, last = self.leftOf(first, one.value.first), self.rightOf(last, one.value.last)
        return first, last

    def leftOf(self, index, least):
        while index > least and self.tokens[index - 1].text not in STOPS:
            before = self.tokens[index - 1]
            index = before.partner if before.text in (")", "]", "}") and before.partner is not None else index - 1
        return index

    def rightOf(self, index, end):
        while index + 1 < end and self.tokens[index + 1].text not in ENDS:
            behind = self.tokens[index + 1]
            index = behind.partner if behind.text in ("(", "[", "{") and behind.partner is not None else index + 1
        return index
