#!/usr/bin/env python3
"""Asks how well the tests watch: puts one-line faults into the sources, one at a time, and tells which are not noticed.

A fault is a slip that compiles: a comparison turned, a sign changed, a constant one higher, a condition inverted, a
statement dropped, arguments swapped, and the like. Everything happens in a copy below build/faults; the checkout is
only read. A fault that does not build, or that leaves the object code as it was, does not count. What no test
notices is tried once more under the sanitizers, together with some play at random.

    fuzz/faults.py --count 20 --folders game,graphics --exclude '^(window|end_to_end|faults|command_line)$'

A survivor is a question, not yet a gap in the tests: some change nothing that anyone could see. A run with one seed
tries the same faults again. The answers go to standard output and to build/faults/report.json.
"""
import argparse
import collections
import dataclasses
import fcntl
import filecmp
import json
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import time

PROJECT = pathlib.Path(__file__).resolve().parent.parent
PLACE = PROJECT / "build" / "faults"
SOURCE = PLACE / "source"
TEMPORARY = PLACE / "tmp"
NOT_COPIED = {"build", ".git", ".cache"}
FOLDERS = "graphics,shell,screens,game,program,platform/common,platform/calls,platform/virtual,replay"

# The programs behind the tests, those that want no display first.
FAST_PROGRAMS = ["unit_tests", "data_tests", "game_tests", "replay_tests", "replay", "platform_tests", "picture_fuzzer",
                 "script_fuzzer", "aim"]
WINDOW_PROGRAMS = ["mygame", "device_demo"]
SOAK_FRAMES = "40000"

# A test that takes longer is in an endless loop; those with a limit of their own keep it.
TEST_SECONDS = {"release": 60, "debug": 120, "sanitize": 400}
CPU_SECONDS = 900  # of one process, should a test leave one behind
MEMORY_BYTES = 8 << 30
FILE_BYTES = 1 << 30
SANITIZER_OPTIONS = {
    "ASAN_OPTIONS": "detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1:"
                    "check_initialization_order=1:hard_rss_limit_mb=4096",
    "UBSAN_OPTIONS": "print_stacktrace=1"}


class Trouble(Exception):
    """What keeps the whole run from going on, as a sentence."""


class DoesNotBuild(Exception):
    """The fault is one that the compiler finds."""


# Reading C++: as much as the slips below need. The sources are formatted, so spaces tell `a * b` from `T *b`.

TOKEN = re.compile(r"""
    (?P<skip>\s+|//[^\n]*|/\*.*?\*/|(?m:^)[ \t]*\#(?:\\\n|[^\n])*)
  | (?P<text>(?:u8|[uUL])?R"(?P<mark>[^(\n]*)\(.*?\)(?P=mark)"|(?:u8|[uUL])?(?:"(?:\\.|[^"\\])*"|'(?:\\.|[^'\\])*'))
  | (?P<number>\.?\d(?:'?[\w.]|(?<=[eEpP])[+-])*)
  | (?P<name>[A-Za-z_]\w*)
  | (?P<sign><=>|<<=|>>=|->\*|\.\.\.|::|->|\+\+|--|&&|\|\||[-+*/%&|^=!<>]=|<<|>>|.)
""", re.VERBOSE | re.DOTALL)

# After these words a new expression begins; no declaration is told by them.
KEYWORDS = set("return case else do throw new delete goto operator sizeof if for while switch catch alignof "
               "co_return static_assert decltype noexcept alignas and or not".split())
NO_STATEMENT = set("case default else do for while if switch try using typedef namespace static_assert template "
                   "class struct enum union friend const constexpr static auto goto public private protected".split())

COMPARISONS = {"<": ["<=", ">"], "<=": ["<", ">="], ">": [">=", "<"], ">=": [">", "<="], "==": ["!="], "!=": ["=="]}
ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "<<": ">>", ">>": "<<", "&": "|", "|": "&", "^": "&"}
ARITHMETIC |= {f"{sign}=": f"{other}=" for sign, other in ARITHMETIC.items()}
LOGIC = {"&&": "||", "||": "&&"}
WORDS = {"min": "max", "max": "min", "true": "false", "false": "true"}
MEMBERS = {"x": "y", "y": "x", "width": "height", "height": "width"}
BRACKETS = {"(": ")", "[": "]", "{": "}"}


@dataclasses.dataclass
class Token:
    kind: str
    text: str
    start: int
    end: int
    spaced: bool = False  # stands between spaces
    glued: bool = False  # the next token follows at once
    partner: int = -1  # of a bracket
    in_code: bool = False  # of a function, not of a class or a table


@dataclasses.dataclass
class Fault:
    file: str
    line: int
    kind: str
    start: int
    end: int
    text: str

    def lines(self, source):
        """The lines it is in, as they are and as they become, each on one line."""
        first = source.rfind("\n", 0, self.start) + 1
        last = source.find("\n", self.end)
        changed = source[first:self.start] + self.text + source[self.end:last]
        return " ".join(source[first:last].split()), " ".join(changed.split())


def tokens_of(source):
    tokens = [Token(found.lastgroup if found.lastgroup != "mark" else "text", found.group(), *found.span())
              for found in TOKEN.finditer(source) if found.lastgroup != "skip"]
    for token, following in zip(tokens, tokens[1:]):
        token.glued = token.end == following.start
        token.spaced = source[token.start - 1].isspace() and source[token.end].isspace()
    opened = []
    for i, token in enumerate(tokens):
        token.in_code = bool(opened) and tokens[opened[-1]].in_code
        if token.text in BRACKETS and token.kind == "sign":
            if token.text == "{":
                before = tokens[i - 1].text if i else ""
                token.in_code = before in (")", "]", "const", "noexcept", "override", "else", "do", "try", "mutable") \
                    or token.in_code and before in ("{", "}", ";", ":")
            opened.append(i)
        elif token.text in BRACKETS.values() and token.kind == "sign" and opened:
            tokens[opened[-1]].partner, token.partner = i, opened[-1]
            opened.pop()
    return tokens


def declares(tokens):
    """Whether two names follow each other, as in `Type name` or `Type &name`."""
    for one, two in zip(tokens, tokens[1:]):
        is_type = one.kind == "name" and one.text not in KEYWORDS or one.text == ">"
        if is_type and (two.kind == "name" or two.text in ("&", "*", "&&") and two.glued and not one.glued):
            return True
    return False


def end_of(tokens, i, stops):
    """The first token from i on, outside of brackets that open there, that is one of `stops` or closes one around."""
    while i < len(tokens) and tokens[i].text not in stops and tokens[i].text not in BRACKETS.values():
        i = max(i, tokens[i].partner) + 1
    return min(i, len(tokens) - 1)


def one_higher(number):
    """@return the text; empty for what is not written in decimal or hexadecimal digits."""
    if hexadecimal := re.fullmatch(r"0[xX]([\da-fA-F']+)([uUlLzZ]*)", number):
        return f"0x{int(hexadecimal[1].replace(chr(39), ''), 16) + 1:X}{hexadecimal[2]}"
    decimal = re.fullmatch(r"([\d']+)((?![xXbB]).*)", number)
    return f"{int(decimal[1].replace(chr(39), '')) + 1}{decimal[2]}" if decimal else ""


# The slips: each yields (kind, first token, end token, new text).

def slips_of_signs(tokens, i):
    token, before = tokens[i], tokens[i - 1]
    if token.text in ("++", "--"):
        yield "step", i, i + 1, "--" if token.text == "++" else "++"
    elif token.text == "!" or token.text == "-" and token.glued and not token.spaced and (
            before.kind == "sign" and before.text not in (")", "]") or before.text in KEYWORDS):
        yield "sign", i, i + 1, ""
    elif token.spaced:
        for other in COMPARISONS.get(token.text, []):
            yield "comparison", i, i + 1, other
        for kind, table in (("arithmetic", ARITHMETIC), ("logic", LOGIC)):
            if token.text in table:
                yield kind, i, i + 1, table[token.text]


def is_members_default(tokens, i):
    """What `Tick start = 0;` gives a member: mostly overwritten before anyone reads it, and dear to build again."""
    begin = i
    while begin > 0 and tokens[begin - 1].text not in (";", "{", "}"):
        begin -= 1
    declaration = tokens[begin:i]
    return (not tokens[i].in_code and tokens[i - 1].text == "=" and declares(declaration)
            and "constexpr" not in (token.text for token in declaration))


def slips_of_words(tokens, i):
    token, before, after = tokens[i], tokens[i - 1], tokens[i + 1]
    if is_members_default(tokens, i):
        return
    if token.kind == "number":
        of_a_type = before.text == "<" and before.glued or after.text == ">" and token.glued
        pure = before.text == "=" and tokens[i - 2].text in (")", "const", "noexcept", "override")
        length = before.text == "[" and (tokens[i - 3].kind == "name" and tokens[i - 3].text not in KEYWORDS
                                         or tokens[i - 3].text == ">")
        if not (of_a_type or pure or length) and (text := one_higher(token.text)):
            yield "constant", i, i + 1, text
    elif token.text in WORDS:
        yield "word", i, i + 1, WORDS[token.text]
    elif token.text in MEMBERS and before.text in (".", "->"):
        yield "member", i, i + 1, MEMBERS[token.text]


def between(source, tokens, first, last):
    return source[tokens[first].start:tokens[last - 1].end] if last > first else ""


def slips_of_conditions(source, tokens, i):
    token = tokens[i]
    if token.text in ("if", "while") and tokens[i + 1].text == "(":
        last = tokens[i + 1].partner
        if not declares(tokens[i + 2:last]) and ";" not in (each.text for each in tokens[i + 2:last]):
            yield "condition", i + 2, last, f"!({between(source, tokens, i + 2, last)})"
    elif token.text == "return":
        last = end_of(tokens, i + 1, ";")
        signs = {each.text for each in tokens[i + 1:last] if each.spaced or each.text in "!{"}
        if signs & {"&&", "||", "!", *COMPARISONS} and not signs & {"?", "{"}:
            yield "result", i + 1, last, f"!({between(source, tokens, i + 1, last)})"
    elif token.text == "?":
        colon = end_of(tokens, i + 1, ":?")
        last = end_of(tokens, colon + 1, ";,:?")
        if tokens[colon].text == ":" and tokens[last].text != "?":
            one, other = between(source, tokens, i + 1, colon), between(source, tokens, colon + 1, last)
            yield "choice", i + 1, last, f"{other} : {one}"


def slips_of_calls(source, tokens, i):
    """Two arguments that follow each other, swapped."""
    token, before = tokens[i], tokens[i - 1]
    called = before.glued and (before.kind == "name" and before.text not in KEYWORDS or before.text == ">")
    if token.text != "(" or not token.in_code or not called:
        return
    starts = [i + 1]
    while (comma := end_of(tokens, starts[-1], ",")) < token.partner:
        starts.append(comma + 1)
    starts.append(token.partner + 1)
    for first, second, after in zip(starts, starts[1:], starts[2:]):
        one, other = between(source, tokens, first, second - 1), between(source, tokens, second, after - 1)
        if one != other and not declares(tokens[first:after - 1]):
            yield "arguments", first, after - 1, f"{other}, {one}"


def slips_of_statements(source, tokens, i):
    """The statement that begins after this token, dropped."""
    token = tokens[i]
    closes_condition = token.text == ")" and tokens[token.partner - 1].text in ("if", "for", "while")
    if not (token.text in ("{", "}", ";", "else") or closes_condition) or not tokens[i + 1].in_code:
        return
    last = end_of(tokens, i + 1, ";")
    statement = tokens[i + 1:last]
    if not statement or tokens[last].text != ";" or statement[0].text in NO_STATEMENT or \
            declares(tokens[i + 1:end_of(tokens, i + 1, "=(;") + 1]):
        return
    # Without the last statement of a function that returns something there is no result.
    if statement[0].text == "return" and len(statement) > 1 and tokens[last + 1].text == "}" and \
            not closes_condition and token.text != "else":
        return
    yield "statement", i + 1, last + 1, "{}" + "\n" * source.count("\n", statement[0].start, tokens[last].end)


def faults_of(file, source):
    tokens = tokens_of(source)
    asserted = 0
    for i in range(1, len(tokens) - 2):
        if tokens[i].text == "static_assert":
            asserted = end_of(tokens, i, ";")
        if i < asserted or tokens[i].kind == "text":
            continue
        for slips in (slips_of_signs(tokens, i), slips_of_words(tokens, i), slips_of_conditions(source, tokens, i),
                      slips_of_calls(source, tokens, i), slips_of_statements(source, tokens, i)):
            for kind, first, last, text in slips:
                start, end = tokens[first].start, tokens[last - 1].end
                yield Fault(file, source.count("\n", 0, start) + 1, kind, start, end, text)


def faults_in(folders, chance):
    """All, in the order of trial: the lines by chance, one fault of each; then a second one of each, and so on."""
    of_lines = collections.defaultdict(list)
    for file in sorted({file for folder in folders for file in (SOURCE / folder).rglob("*.[ch]*")}):
        name = str(file.relative_to(SOURCE))
        for fault in faults_of(name, file.read_text()):
            of_lines[name, fault.line].append(fault)
    lines = list(of_lines.values())
    chance.shuffle(lines)
    for faults in lines:
        chance.shuffle(faults)
    for turn in range(max(map(len, lines), default=0)):
        yield from (faults[turn] for faults in lines if turn < len(faults))


# Building and testing in the copy.

def limit(memory):
    limits = {resource.RLIMIT_CPU: CPU_SECONDS, resource.RLIMIT_FSIZE: FILE_BYTES, resource.RLIMIT_AS: memory}
    for what, most in limits.items():
        resource.setrlimit(what, (most, most))


def run(command, environment=None, memory=resource.RLIM_INFINITY):
    """@return whether it succeeded, and what it said. Nothing that it started stays."""
    process = subprocess.Popen(
        command, cwd=SOURCE, env={**os.environ, "TMPDIR": str(TEMPORARY), **(environment or {})}, text=True,
        errors="replace", stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
        start_new_session=True, preexec_fn=lambda: limit(memory))
    try:
        output = process.communicate()[0]
    finally:
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        process.wait()
    return process.returncode == 0, output


def files_below(folder):
    """Their names in the folder, with what tells whether one was written."""
    return {os.path.relpath(entry, folder): (os.lstat(entry).st_size, os.lstat(entry).st_mtime_ns)
            for top, _, names in os.walk(folder) for entry in (os.path.join(top, name) for name in names)}


def copy_sources():
    """Makes the copy as the checkout is. What differs gets the time of now, so that it is built anew."""
    wanted = set()
    for top, folders, names in os.walk(PROJECT):
        folders[:] = [name for name in folders if top != str(PROJECT) or name not in NOT_COPIED]
        for name in names:
            original = pathlib.Path(top, name)
            relative = original.relative_to(PROJECT)
            copy = SOURCE / relative
            wanted.add(str(relative))
            copy.parent.mkdir(parents=True, exist_ok=True)
            if not copy.is_file() or not filecmp.cmp(original, copy, shallow=False):
                copy.unlink(missing_ok=True)
                shutil.copy(original, copy)
    for name in files_below(SOURCE):
        if name not in wanted and not name.startswith("build/"):
            (SOURCE / name).unlink()


class Build:
    """One preset's folder. A copy of it as it is without a fault makes undoing one cost no building."""

    def __init__(self, preset, options):
        self.preset, self.jobs, self.tests, self.exclude = preset, options.jobs, options.tests, options.exclude
        self.folder = SOURCE / "build" / preset
        self.kept = PLACE / f"{preset}.kept"
        self.sanitized = preset == "sanitize"
        self.fast_programs = FAST_PROGRAMS + (["soak"] if self.sanitized else [])
        self.environment = SANITIZER_OPTIONS if self.sanitized else {}
        self.memory = resource.RLIM_INFINITY if self.sanitized else MEMORY_BYTES
        self.objects = collections.defaultdict(list)  # by the source or header they are made from
        self.window_tests = []

    def prepare(self):
        """Builds what has no fault, keeps it, and holds it against the tests."""
        print(f"preset {self.preset}: building and testing without a fault ...", flush=True)
        if self.kept.exists():
            self.put_back()
        fine, output = run(["cmake", "--preset", self.preset, "--log-level=WARNING"])
        if fine:
            fine, output = self.make("data", *self.fast_programs, *([] if self.sanitized else WINDOW_PROGRAMS))
        if not fine:
            raise Trouble(f"the sources do not build without a fault:\n{output[-2000:]}")
        self.read_objects()
        self.find_window_tests()
        # With the times of the last run, CTest would begin with the longest test.
        (self.folder / "Testing/Temporary/CTestCostData.txt").unlink(missing_ok=True)
        self.keep()
        catcher = self.test_fast() or (None if self.sanitized else self.test_windows())
        self.put_back()
        if catcher:
            raise Trouble(f"preset {self.preset}: without a fault, the tests fail already: {catcher}")

    def read_objects(self):
        _, output = run(["ninja", "-C", str(self.folder), "-t", "deps"])
        for line in output.splitlines():
            if line.startswith("    "):
                file = os.path.normpath(self.folder / line.strip())
                self.objects[os.path.relpath(file, SOURCE)].append(target)
            elif ": #deps" in line:
                target = line.split(": #deps")[0]

    def find_window_tests(self):
        """Those that need a display, and take long."""
        _, output = run(["ctest", "--preset", self.preset, "--show-only=json-v1"])
        self.window_tests = [test["name"] for test in json.loads(output[output.index("{"):])["tests"]
                             if {"name": "LABELS", "value": ["window"]} in test.get("properties", [])]

    def make(self, *targets):
        return run(["cmake", "--build", "--preset", self.preset, "--target", *targets, "--", f"-j{self.jobs}"])

    def differ(self, files):
        return [file for file in files if not filecmp.cmp(self.folder / file, self.kept / file, shallow=False)]

    def changes_code(self, file):
        """Whether what is built from the file, tests apart, differs."""
        objects = self.objects[file]
        if objects and not self.make(*objects)[0]:
            raise DoesNotBuild
        written = self.differ(o for o in objects if not o.startswith(("tests/", "fuzz/", "bench/")))
        return any(self.code(self.folder / o) != self.code(self.kept / o) for o in written)

    @staticmethod
    def code(file):
        bare = TEMPORARY / "bare.o"
        subprocess.run(["objcopy", "--strip-debug", file, bare], check=True)
        return bare.read_bytes()

    def link(self, programs):
        """@return which of them differ, and what noticed the fault: listing its tests runs a program."""
        fine, output = self.make(*programs)
        if fine:
            return self.differ(f"bin/{program}" for program in programs), None
        if "ld returned" in output:
            raise DoesNotBuild
        return [], "a program that cannot list its tests"

    def ctest(self, choice, but="$^", jobs=1):
        """@return the first test that fails, of those chosen by an expression but for those of another; or None."""
        fine, output = run(["ctest", "--preset", self.preset, "--stop-on-failure", "--no-tests=ignore", "-j", str(jobs),
                            "--timeout", str(TEST_SECONDS[self.preset]), "-R", choice, "-E", but],
                           self.environment, self.memory)
        failed = re.search(r"tests FAILED:\n\s*\d+ - (.*?) .*\((.*)\)", output)
        return None if fine else f"{failed[1]} ({failed[2]})" if failed else "ctest"

    def test_fast(self):
        others = "|".join([self.exclude, *(f"^{name}$" for name in self.window_tests)])
        catcher = self.ctest(self.tests, others, self.jobs)
        if not catcher and self.sanitized:
            fine, _ = run([self.folder / "bin/soak", SOAK_FRAMES], self.environment)
            catcher = None if fine else "soak"
        return catcher

    def test_windows(self):
        chosen = [name for name in self.window_tests
                  if re.search(self.tests, name) and not re.search(self.exclude, name)]
        return self.ctest("|".join(f"^{name}$" for name in chosen), jobs=self.jobs) if chosen else None

    def catcher_of(self):
        """@return what notices the fault, None if nothing does."""
        changed, catcher = self.link(self.fast_programs)
        if changed and not catcher:
            catcher = self.test_fast()
        if not catcher and not self.sanitized:
            changed, catcher = self.link(WINDOW_PROGRAMS)
            if changed and not catcher:
                catcher = self.test_windows()
        return catcher

    def keep(self):
        new = pathlib.Path(f"{self.kept}.new")
        for old in (self.kept, new):
            shutil.rmtree(old, ignore_errors=True)
        shutil.copytree(self.folder, new, symlinks=True)
        new.rename(self.kept)

    def put_back(self):
        kept, now = files_below(self.kept), files_below(self.folder)
        for name in now.keys() - kept.keys():
            (self.folder / name).unlink()
        for name in (name for name in kept if kept[name] != now.get(name)):
            (self.folder / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(self.kept / name, self.folder / name)


class Hunt:
    """Tries one fault after another and remembers what came of each."""

    def __init__(self, options):
        self.options = options
        self.build = Build(options.preset, options)
        self.sanitizers = None if options.no_sanitizers else Build("sanitize", options)
        self.results = []

    def with_result(self, *results):
        return [each for each in self.results if each["result"] in results]

    def counted(self):
        return self.with_result("caught", "sanitizers", "survived")

    def run(self):
        copy_sources()
        self.build.prepare()
        for fault in faults_in(self.options.folders, random.Random(self.options.seed)):
            if len(self.counted()) == self.options.count:
                break
            if self.build.objects[fault.file]:
                self.attempt(fault)

    def attempt(self, fault):
        begin = time.monotonic()
        original, mutated = fault.lines((SOURCE / fault.file).read_text())
        result, catcher = self.outcome(self.build, fault)
        if result == "survived" and self.sanitizers:
            if not self.sanitizers.objects:
                self.sanitizers.prepare()
            again, catcher = self.outcome(self.sanitizers, fault)
            result = "sanitizers" if again == "caught" else "survived"
        seconds = round(time.monotonic() - begin, 1)
        self.results.append({"file": fault.file, "line": fault.line, "kind": fault.kind, "original": original,
                             "mutated": mutated, "result": result, "by": catcher, "seconds": seconds})
        by = f" by {catcher}" if catcher else ""
        print(f"{len(self.counted())}/{self.options.count} {fault.file}:{fault.line} {fault.kind}: {result}{by}"
              f" ({seconds} s)", flush=True)

    @staticmethod
    def outcome(build, fault):
        """@return what came of it, and what caught it. Afterwards the copy is as it was."""
        file = SOURCE / fault.file
        source, times = file.read_text(), os.stat(file)
        try:
            file.write_text(source[:fault.start] + fault.text + source[fault.end:])
            if not build.changes_code(fault.file):
                return "same code", None
            catcher = build.catcher_of()
            return "caught" if catcher else "survived", catcher
        except DoesNotBuild:
            return "does not build", None
        finally:
            # The source last: while it differs, whoever was interrupted here builds it anew.
            build.put_back()
            file.write_text(source)
            os.utime(file, ns=(times.st_atime_ns, times.st_mtime_ns))
            empty_temporary()

    def report(self):
        numbers = {title: len(self.with_result(result)) for title, result in (
            ("caught", "caught"), ("caught by the sanitizers or the soak only", "sanitizers"), ("survived", "survived"),
            ("not counted, does not build", "does not build"), ("not counted, same code", "same code"))}
        numbers = {"counted": len(self.counted()), **numbers}
        of_run = {name: getattr(self.options, name) for name in ("seed", "preset", "folders", "tests", "exclude")}
        (PLACE / "report.json").write_text(json.dumps({**of_run, **numbers, "faults": self.results}, indent=1) + "\n")
        for fault in self.with_result("sanitizers", "survived"):
            print(f"\n{fault['file']}:{fault['line']}: {fault['result']}")
            print(f"  - {fault['original']}\n  + {fault['mutated']}")
        print("\n" + "\n".join(f"{number:5} {title}" for title, number in numbers.items()))


def empty_temporary():
    shutil.rmtree(TEMPORARY, ignore_errors=True)
    TEMPORARY.mkdir(parents=True)


class Arguments(argparse.ArgumentParser):
    def error(self, message):
        self.exit(2, f"faults.py: {message}.\n")


def options_of(arguments):
    parser = Arguments(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=20, help="faults that count (20)")
    parser.add_argument("--seed", type=int, default=1, help="another number, other faults (1)")
    parser.add_argument("--folders", default=FOLDERS, help=f"by default {FOLDERS}")
    parser.add_argument("--jobs", type=int, default=2, help="builds and tests at once (2)")
    parser.add_argument("--preset", choices=["release", "debug"], default="release")
    parser.add_argument("--tests", default=".", metavar="REGEX", help="only tests of these names")
    parser.add_argument("--exclude", default="$^", metavar="REGEX", help="no tests of these names")
    parser.add_argument("--no-sanitizers", action="store_true", help="do not try survivors under the sanitizers")
    options = parser.parse_args(arguments)
    if options.count < 1 or options.jobs < 1:
        parser.error("--count and --jobs want a number from 1 on")
    options.folders = options.folders.split(",")
    for folder in options.folders:
        if not re.fullmatch(r"[a-z_]+(/[a-z_]+)*", folder) or not (PROJECT / folder).is_dir():
            parser.error(f"'{folder}' is not a folder of the sources")
    for expression in (options.tests, options.exclude):
        try:
            re.compile(expression)
        except re.error as error:
            parser.error(f"'{expression}' is not a regular expression: {error}")
    return options


def main():
    options = options_of(sys.argv[1:])
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    PLACE.mkdir(parents=True, exist_ok=True)
    lock = open(PLACE / "lock", "w")
    try:
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        print("faults.py: another run is at work in build/faults.", file=sys.stderr)
        sys.exit(2)
    empty_temporary()
    hunt = Hunt(options)
    try:
        hunt.run()
    except Trouble as trouble:
        print(f"faults.py: {trouble}", file=sys.stderr)
        sys.exit(2)
    except KeyboardInterrupt:
        print("interrupted")
    finally:
        hunt.report()


if __name__ == "__main__":
    main()
