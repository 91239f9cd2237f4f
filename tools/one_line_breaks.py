"""Finds the places of a C++ file where one small change would break a rule, and writes the file with such changes.

The code is only cut into tokens, not understood. It leans on clang-format: a binary operator has blanks around it, the
brackets of a template have none. What does not compile is no break; the compiler says so.
"""
import re

TOKEN = re.compile(
    r"""(?P<skip>\s+|//[^\n]*|/\*.*?\*/)
    |(?P<pre>^[ \t]*\#(?:[^\n]*\\\n)*[^\n]*)
    |(?P<raw>R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)")
    |(?P<text>"(?:[^"\\\n]|\\.)*")
    |(?P<char>'(?:[^'\\\n]|\\.)+')
    |(?P<number>\.?\d(?:'?[\w.]|(?<=[eE])[+-])*)
    |(?P<name>[A-Za-z_]\w*)
    |(?P<sign><=>|<<=|>>=|->\*|\.\.\.|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|::|.)""",
    re.X | re.S | re.M,
)

OTHER = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&", "+": "-", "-": "+",
         "*": "/", "/": "*", "+=": "-=", "-=": "+=", "++": "--", "--": "++", "%": "/", "&": "|", "|": "&", "^": "|",
         "&=": "|=", "|=": "&=", "<<": ">>", ">>": "<<"}
COMPARISONS = {"<", "<=", ">", ">=", "==", "!=", "<=>"}
BEFORE_CONDITION = {"(", "[", "{", ",", ";", "=", "return", "throw", "else", ":", "?", "&&", "||", "+=", "-=", "*=", "/=", "%=", "|=",
                    "&=", "^=", "<<=", ">>="}
JUMPS = {"return", "break", "continue", "throw", "goto"}
NO_STATEMENT = {"if", "for", "while", "switch", "do", "else", "try", "catch", "case", "default", "using", "static_assert",
                "struct", "class", "enum", "namespace", "public", "private", "template", "friend", "typedef"}
DECLARES = {"const", "static", "constexpr", "auto", "thread_local"}
OPENING = {"(": ")", "[": "]", "{": "}"}
SUBSCRIPT = r"\[(?:[^\[\]]|\[[^\[\]]*\])*\]"
SET = rf"(?:[\w.]|->|{SUBSCRIPT})+?"  # what a statement sets: rows[at + 1].text


class Token:
    """A piece of code: its kind, its text and where it begins in the file."""

    def __init__(self, kind, text, at):
        self.kind, self.text, self.at = kind, text, at
        self.end = at + len(text)
        self.partner = None  # index of the bracket that belongs to it
        self.template = False  # inside the brackets of a template


class Break:
    """One change: the texts between pairs of offsets that are replaced, and in which function or value."""

    def __init__(self, edits, told, function, value):
        self.edits, self.told, self.function, self.value = edits, told, function, value
        self.number = self.key = self.line = None


class Function:
    """A function with a body: its name, the tokens of its braces, and whether the compiler may run it, or has to."""

    def __init__(self, name, opened, closed, constant, fixed, givesBool):
        self.name, self.opened, self.closed = name, opened, closed
        self.constant, self.fixed, self.givesBool = constant, fixed, givesBool


def cutTokens(code):
    """The tokens of `code` without comments and preprocessor lines, with brackets paired."""
    tokens = []
    for found in TOKEN.finditer(code):
        if found.lastgroup not in ("skip", "pre"):
            tokens.append(Token(found.lastgroup, found.group(), found.start()))
    pairBrackets(tokens)
    markTemplates(code, tokens)
    return tokens


def pairBrackets(tokens):
    open_ = []
    for index, token in enumerate(tokens):
        if token.kind != "sign":
            continue
        if token.text in OPENING:
            open_.append(index)
        elif token.text in OPENING.values() and open_:
            token.partner = open_.pop()
            tokens[token.partner].partner = index


def markTemplates(code, tokens):
    """What stands between `<` right behind a name, or behind `template`, and its `>` is a template's."""
    for index, token in enumerate(tokens):
        before = tokens[index - 1]
        if token.text != "<" or index == 0 or before.kind != "name" or before.end != token.at and before.text != "template":
            continue
        depth = 0
        for end in range(index, len(tokens)):
            depth += {"<": 1, ">": -1, ">>": -2}.get(tokens[end].text, 0)
            if tokens[end].text in (";", "{") or depth <= 0:
                break
        if depth <= 0:
            for inner in tokens[index : end + 1]:
                inner.template = True


class Value:
    """What gives a value outside of all functions: its tokens, whose value it is ("" if a constructor's parts), and whether the
    compiler may work it out, or has to."""

    def __init__(self, first, last, name, constant, fixed):
        self.first, self.last, self.name = first, last, name
        self.constant, self.fixed = constant, fixed


class Layout:
    """Which tokens are a function's body, and which ones give a value outside of all functions."""

    def __init__(self, tokens):
        self.tokens = tokens
        self.functions = []
        self.values = []
        self.walk(0, len(tokens))

    def walk(self, index, end):
        begin = index
        while index < end:
            text = self.tokens[index].text
            if text == ";":
                self.addValue(begin, index)
                begin = index = index + 1
            elif text == ":" and self.tokens[index - 1].text in ("public", "private", "protected"):
                begin = index = index + 1
            elif text == "{":
                index = self.brace(begin, index)
                isBody = self.functions and self.functions[-1].closed == index - 1
                if isBody or index < end and self.tokens[index].text not in (";", ",", "{", ")"):
                    begin = index
            elif text in OPENING:
                index = (self.tokens[index].partner or index) + 1
            else:
                index += 1

    def brace(self, begin, index):
        """Goes through or over the braces that open at `index` in what began at `begin`; gives the token behind."""
        head = self.tokens[begin:index]
        words = {token.text for token in head}
        closed = self.tokens[index].partner
        plain = {token.text for token in self.outer(begin, index)}
        if "namespace" in words or ({"struct", "class", "union", "extern"} & plain and not {"(", "="} & plain):
            self.walk(index + 1, closed)
        elif "enum" in words:
            self.values.append(Value(index + 1, closed, "", True, True))
        elif self.tokens[index - 1].text == "]" and self.tokens[self.tokens[index - 1].partner - 1].text == "=":
            self.addLambda(begin, index, closed)
        elif "=" in plain and "operator" not in words or not "(" in plain or self.setsMember(begin, index):
            if closed + 1 < len(self.tokens) and self.tokens[closed + 1].text == ";" and "=" not in plain:
                self.addNamed(begin, index, closed)
        else:
            self.addFunction(begin, index, closed)
        return closed + 1

    def outer(self, begin, end):
        """The tokens of a head that stand in no brackets, and the brackets themselves."""
        while begin < end:
            token = self.tokens[begin]
            if not token.template:
                yield token
            begin = token.partner if token.text in OPENING and token.partner is not None else begin + 1

    def setsMember(self, begin, index):
        """Whether the brace gives a member its value, in front of a constructor's body: `: a_(1), b_{2} {`"""
        before = self.tokens[index - 1]
        return before.kind == "name" and before.text not in ("const", "noexcept", "override", "mutable") and any(
            token.text == ":" for token in self.outer(begin, index)) and self.tokens[index - 2].text in (":", ",")

    def addFunction(self, begin, index, closed):
        head = self.tokens[begin:index]
        texts = [token.text for token in head]
        outer = list(self.outer(begin, index))
        name = "?"
        first = next((number for number, token in enumerate(outer) if token.text == "("), 0)
        if first:
            name = outer[first - 1].text
        givesBool = "bool" in [token.text for token in outer[:first]] or "->" in texts and texts[-1] == "bool"
        words = {token.text for token in outer}
        constant, fixed = bool({"constexpr", "consteval"} & words), "consteval" in words
        colon = next((token for token in outer[first:] if token.text == ":"), None)
        if colon:
            self.values.append(Value(head.index(colon) + begin + 1, index, "", constant, fixed))
        self.functions.append(Function(name, index, closed, constant, fixed, givesBool))

    def addLambda(self, begin, index, closed):
        """A lambda that gives a value outside of functions has the value's name: const auto sizes = [] {"""
        names = self.namesOf(begin, index)
        self.functions.append(Function(names[-1], index, closed, "constexpr" in names, False, False))

    def addNamed(self, begin, index, end):
        """The value behind the token at `index`, of the last name in front that stands in no brackets:
        constexpr std::array<int, N> table{1, 2} -> table"""
        names = self.namesOf(begin, index)
        self.values.append(Value(index + 1, end, names[-1] if names else "", "constexpr" in names, False))

    def namesOf(self, begin, end):
        return [token.text for token in self.outer(begin, end) if token.kind == "name"]

    def addValue(self, begin, end):
        if self.tokens[begin].text in ("using", "static_assert", "template", "friend") if begin < end else True:
            return
        index = begin
        while index < end and self.tokens[index].text != "(":
            token = self.tokens[index]
            if token.text == "=" and not token.template:
                self.addNamed(begin, index, end)
                return
            index = token.partner + 1 if token.text in OPENING and token.partner is not None else index + 1


class Finder:
    """The breaks of one file."""

    def __init__(self, code):
        self.code = code
        self.tokens = cutTokens(code)
        self.layout = Layout(self.tokens)
        self.breaks = []
        self.value = None
        for function in self.layout.functions:
            self.function = function
            self.steps = self.forSteps(function.opened, function.closed)
            self.inExpressions(function.opened + 1, function.closed)
            self.inStatements(function.opened, function.closed)
        self.function = None
        self.steps = set()
        for self.value in self.layout.values:
            self.inExpressions(self.value.first, self.value.last)
        self.nameAll()

    def add(self, told, *edits):
        self.breaks.append(Break(sorted(edits), told, self.function, self.value))

    def replace(self, token, text):
        self.add(f"{token.text} -> {text}", (token.at, token.end, text))

    def textOf(self, first, last):
        return self.code[self.tokens[first].at : self.tokens[last].end]

    def forSteps(self, first, last):
        """The tokens of the steps of `for` loops: to break them only makes loops without an end."""
        steps = set()
        for index in range(first, last):
            if self.tokens[index].text == "for" and self.tokens[index + 1].text == "(":
                closed = self.tokens[index + 1].partner
                semicolons = [at for at in range(index, closed) if self.tokens[at].text == ";"]
                if semicolons:
                    steps.update(range(semicolons[-1], closed))
        return steps

    def inExpressions(self, first, last):
        skipTo = first
        for index in range(first, last):
            token = self.tokens[index]
            if token.text == "static_assert":
                skipTo = self.tokens[index + 1].partner
            if index < skipTo or token.template or index in self.steps:
                continue
            if token.kind == "number":
                self.number(token)
            elif token.kind in ("text", "raw"):
                self.add(f"{token.text} -> text~", self.longer(token))
            elif token.kind == "char":
                self.replace(token, otherChar(token.text))
            elif token.text in ("true", "false"):
                self.replace(token, "false" if token.text == "true" else "true")
            elif token.text == "?":
                self.condition(index)
            elif token.kind == "sign":
                self.sign(index, token)

    def condition(self, index):
        """The last part of what stands before a "?", unless it is broken for what it holds itself."""
        first = index
        while first > 0 and (self.tokens[first - 1].template or self.tokens[first - 1].text not in BEFORE_CONDITION):
            first = self.tokens[first - 1].partner if self.tokens[first - 1].text in {")", "]", "}"} else first - 1
        outer = self.layout.outer(first, index)
        if not any(token.text in COMPARISONS and not token.template or token.text == "!" for token in outer):
            begin, end = self.tokens[first].at, self.tokens[index - 1].end
            self.add(f"negate {flat(self.textOf(first, index - 1))} ?", (begin, begin, "!("), (end, end, ")"))

    def longer(self, token):
        at = token.end - 1 if token.kind == "text" else self.code.index("(", token.at) + 1
        return (at, at, "~")

    def number(self, token):
        found = re.fullmatch(r"(0[xX][\da-fA-F']+|[\d']+)([uUlL]*)", token.text)
        if not found:
            plain = re.fullmatch(r"([\d.']+)([fF]?)", token.text)
            if plain:
                self.replace(token, str(float(plain[1].replace("'", "")) + 1) + plain[2])
            return
        digits = found[1].replace("'", "")
        value = int(digits, 16 if digits[:2].lower() == "0x" else 8 if digits[0] == "0" and len(digits) > 1 else 10)
        self.replace(token, str(value + 1) + found[2])
        if value > 0:
            self.replace(token, str(value - 1) + found[2])

    def sign(self, index, token):
        before, behind = self.code[token.at - 1], self.code[token.end : token.end + 1]
        binary = before.isspace() and behind.isspace()
        previous = self.tokens[index - 1]
        if previous.text == "operator":
            return
        if binary or token.text in ("++", "--"):
            if token.text in OTHER:
                self.replace(token, OTHER[token.text])
        elif token.text == "!" or token.text == "-" and not (previous.kind in ("name", "number") and previous.text != "return"
                                                            or previous.text in (")", "]")):
            following = self.tokens[index + 1]
            self.add(f"drop {token.text} of {token.text}{following.text}", (token.at, token.end, " "))

    def inStatements(self, opened, closed):
        """Walks the statements of a block, and of all blocks and lambdas in it."""
        index = opened + 1
        previous = None
        while index < closed:
            token = self.tokens[index]
            if token.text in ("if", "while"):
                self.negate(index)
            if token.text in ("if", "while", "for", "switch", "catch"):
                index = self.behindHeader(index)
                previous = None
                continue
            if token.text in ("{", "}", ";", "else", "do", "try"):
                if token.text == "{":
                    self.inStatements(index, token.partner)
                    index = token.partner
                index += 1
                previous = None
                continue
            if token.text in ("case", "default"):
                index = self.behindLabel(index)
                previous = None
                continue
            end = self.endOfStatement(index, closed)
            self.lambdasIn(index, end)
            previous = self.statement(index, end, previous)
            index = end + 1

    def behindHeader(self, index):
        opened = index + 1
        while self.tokens[opened].text != "(":
            opened += 1
        self.lambdasIn(opened + 1, self.tokens[opened].partner)
        return self.tokens[opened].partner + 1

    def behindLabel(self, index):
        while self.tokens[index].text != ":":
            index += 1
        return index + 1

    def endOfStatement(self, index, closed):
        while index < closed and self.tokens[index].text != ";":
            index = self.tokens[index].partner if self.tokens[index].text in OPENING else index
            index += 1
        return index

    def lambdasIn(self, index, end):
        """The bodies of lambdas: braces behind `)` or `]`, or behind the type that a lambda gives."""
        while index < end:
            token, before = self.tokens[index], self.tokens[index - 1]
            if token.text == "{" and (before.text in (")", "]", "mutable") or self.tokens[index - 2].text == "->"):
                self.inStatements(index, token.partner)
                index = token.partner
            index += 1

    def negate(self, index):
        opened = index + 1
        while self.tokens[opened].text != "(":
            opened += 1
        closed = self.tokens[opened].partner
        first = opened + 1
        semicolon = [at for at in range(first, closed) if self.tokens[at].text == ";"]
        if semicolon:
            first = semicolon[0] + 1
        words = {token.text for token in self.tokens[first:closed]}
        if self.tokens[first].text == "!" and not words & {"&&", "||"} or "const" in words or "auto" in words:
            return
        self.add(f"negate ({self.textOf(first, closed - 1)})",
                 (self.tokens[first].at, self.tokens[first].at, "!("), (self.tokens[closed].at, self.tokens[closed].at, ")"))

    def statement(self, index, end, previous):
        """One statement that ends with a semicolon; gives it back if its neighbour may change places with it."""
        first = self.tokens[index]
        text = self.textOf(index, end - 1)
        if first.text in NO_STATEMENT:
            return None
        if first.text == "return" and end > index + 1:
            self.negateReturn(index, end)
            return None
        if first.text == "throw":
            return None
        if self.declares(index, end):
            if first.text not in DECLARES and self.tokens[index + 2].text in ("(", "{"):
                self.drop(first, text)
            return None
        self.drop(first, text)
        if first.text in JUMPS:
            return None
        if previous and not independent(previous[1], text):
            self.add(f"swap {flat(previous[1])} and {flat(text)}", (previous[0].at, previous[0].at + len(previous[1]), text),
                     (first.at, first.at + len(text), previous[1]))
        return first, text

    def drop(self, first, text):
        self.add(f"drop {flat(text)}", (first.at, first.at + len(text), " "))

    def declares(self, index, end):
        if self.tokens[index].text in DECLARES:
            return True
        if self.tokens[index].text in ("*", "&", "delete"):
            return False
        while index < end and (self.tokens[index].kind == "name" or self.tokens[index].text == "::"
                               or self.tokens[index].template or self.tokens[index].text in ("&", "*")):
            if self.tokens[index].kind == "name" and self.tokens[index + 1].kind == "name":
                return True
            if self.tokens[index].text in ("&", "*", ">") and self.tokens[index + 1].kind == "name":
                return True
            index += 1
        return False

    def negateReturn(self, index, end):
        if not self.function.givesBool or self.tokens[index + 1].text in ("true", "false"):
            return
        if self.tokens[index + 1].text == "!" and not {token.text for token in self.tokens[index:end]} & {"&&", "||"}:
            return
        self.add("negate " + flat(self.textOf(index, end - 1)),
                 (self.tokens[index + 1].at, self.tokens[index + 1].at, "!("), (self.tokens[end].at, self.tokens[end].at, ")"))

    def nameAll(self):
        """Keys that outlive the moving of lines: function, text of the line, change, and which of several alike it is."""
        self.breaks.sort(key=lambda one: one.edits[0][:2])
        seen = {}
        for one in self.breaks:
            at = one.edits[0][0]
            one.line = self.code.count("\n", 0, at) + 1
            line = self.code[self.code.rfind("\n", 0, at) + 1 : (self.code.find("\n", at) + 1 or len(self.code) + 1) - 1]
            key = f"{one.function.name if one.function else '-'} | {flat(line)} | {one.told}"
            seen[key] = seen.get(key, 0) + 1
            one.key = key if seen[key] == 1 else f"{key} #{seen[key]}"


def independent(one, other):
    """Whether both set something, and neither names what the other sets: their order is no rule. Beside a call only a plain
    assignment is looked at in this way."""
    how = r" = |\.clear\(\)" if "(" in one + other else r" [-+*/%|&^]?= |\+\+|--|$"
    sets = [re.match(rf"(?:\+\+|--)?({SET})(?:{how})(.*)", text, re.S) for text in (one, other)]
    if not all(sets) or sets[0][1] == sets[1][1]:
        return one == other
    named = [re.findall(r"\w+", re.sub(SUBSCRIPT, "", found[1]))[-1] for found in sets]
    seen = [" ".join([*re.findall(SUBSCRIPT, found[1]), found[2]]) for found in sets]
    return not any(re.search(rf"\b{named[1 - number]}\b", text) for number, text in enumerate(seen))


def flat(text):
    """Text on one line, with single blanks."""
    return " ".join(text.split())


def otherChar(text):
    """Another character: 'a' -> 'b'"""
    return "'~'" if len(text) != 3 or text in ("'&'", "'['") else f"'{chr(ord(text[1]) + 1)}'"
