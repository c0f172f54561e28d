#!/usr/bin/env python3
"""Changes one operator or constant at a time and asks the tests of that folder whether they notice.

    mutants.py TREE [--seed N] [--count N] [--folders NAME...] [--jobs N] [--cmake WORDS]

All changes are built at once into a copy of the tree: each changed expression becomes
`(mutant() == K ? (changed) : (original))`, and the environment says which K holds. What lives although the
tests ran through is named; tests/trials/equal_mutants.txt lists those of which nobody could tell, with the reason.
"""
import argparse
import collections
import concurrent.futures
import functools
import hashlib
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import time

FOLDERS = ["maze", "solve", "underpass", "canvas", "patterns"]
LEAST_CAUGHT = 0.9
HEADER = """// Which mutant is in hand.
#pragma once

#include <cstdlib>
#include <type_traits>

namespace gridwright {

inline int mutantInHand() {
  static const int number = [] {
    const char* said = std::getenv("GRIDWRIGHT_MUTANT");
    return said == nullptr ? 0 : std::atoi(said);
  }();
  return number;
}

/// What the compiler reckons out is never changed.
constexpr int mutant() { return std::is_constant_evaluated() ? 0 : mutantInHand(); }

}  // namespace gridwright
"""

# Binary operators with what they become, and how tightly they bind.
CHANGES = {"<": ["<=", ">="], ">": [">=", "<="], "<=": ["<", ">"], ">=": [">", "<"], "==": ["!="], "!=": ["=="],
           "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["+"], "/": ["*"], "%": ["+"], "+=": ["-="],
           "-=": ["+="]}
BINDS = {"+=": 1, "-=": 1, "=": 1, "*=": 1, "/=": 1, "|=": 1, "&=": 1, "?": 2, ":": 2, "||": 3, "&&": 4, "|": 5,
         "^": 6, "&": 7, "==": 8, "!=": 8, "<": 9, ">": 9, "<=": 9, ">=": 9, "<<": 11, ">>": 11, "+": 12, "-": 12,
         "*": 13, "/": 13, "%": 13}
TOKEN = re.compile(r"""(?P<skip>//[^\n]*|/\*.*?\*/|^[ \t]*\#[^\n]*(?:\\\n[^\n]*)*)
                     |(?P<text>"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])*')
                     |(?P<number>\b\d[\w.']*)
                     |(?P<word>[A-Za-z_]\w*)
                     |(?P<sign><=>|->|::|\+\+|--|<<=|>>=|<=|>=|==|!=|&&|\|\||\+=|-=|\*=|/=|\|=|&=|<<|[^\sA-Za-z_0-9])""",
                   re.S | re.M | re.X)
# A statement with one of these is reckoned out by the compiler or declares something.
FIXED = {"constexpr", "static_assert", "case", "template", "enum", "using", "sizeof"}


class Token:
    def __init__(self, match, source):
        self.kind, self.text = match.lastgroup, match.group()
        self.begin, self.end = match.span()
        self.spaced = source[self.begin - 1:self.begin].isspace() and source[self.end:self.end + 1].isspace()

    def is_operator(self):
        return self.kind == "sign" and self.text in BINDS and self.spaced


Site = collections.namedtuple("Site", "file begin end change original changed")


def tokens_of(source):
    return [Token(m, source) for m in TOKEN.finditer(source) if m.lastgroup != "skip"]


def is_open(token):
    return token.text in "([{" or (token.text == "<" and not token.spaced)


def is_close(token):
    return token.text in ")]}" or (token.text == ">" and not token.spaced)


def operand(tokens, at, step, binds):
    """The index of the last token of the operand on one side of an operator, or None where that is not plain."""
    depth, i = 0, at
    while True:
        following = i + step
        if not 0 <= following < len(tokens):
            return None
        token = tokens[following]
        inward, outward = (is_open, is_close) if step > 0 else (is_close, is_open)
        if inward(token):
            if token.text in "{}":
                return None if i == at or step > 0 else i
            depth += 1
        elif outward(token):
            if depth == 0:
                return i if i != at else None
            depth -= 1
        elif depth == 0:
            if token.text in ";," or token.text in ("return", "throw", "co_return"):
                return i if i != at else None
            if token.is_operator():
                tighter = BINDS[token.text] > binds or (step < 0 and BINDS[token.text] == binds)
                if not tighter:
                    return i if i != at else None
        i = following


def bodies(tokens):
    """Which tokens stand in a function's body, in no statement that the compiler reckons out."""
    inside, stack, fixed, begins = [], [], False, True
    body = False
    for i, token in enumerate(tokens):
        if begins:
            fixed, begins = False, False
        if token.text in FIXED:
            fixed = True
        if token.text == "{":
            before = tokens[i - 1].text if i else ""
            opens = before in (")", "const", "override", "noexcept", "mutable", "]", "else", "do")
            stack.append((body, fixed))
            body = body or before in (")", "const", "override", "noexcept")
            fixed = fixed and not opens
            begins = opens or not body
            if not begins:
                stack[-1] = stack[-1] + ()
        elif token.text == "}":
            if stack:
                body, fixed = stack.pop()
            following = tokens[i + 1].text if i + 1 < len(tokens) else ""
            begins = following not in (",", ";", ")", "}")
        elif token.text == ";":
            begins = True
        inside.append(body and not fixed)
    return inside


def sites_of(path, name):
    source = path.read_text()
    tokens = tokens_of(source)
    inside = bodies(tokens)
    found = []
    for i, token in enumerate(tokens):
        if not inside[i]:
            continue
        if token.is_operator() and token.text in CHANGES:
            left = operand(tokens, i, -1, BINDS[token.text])
            right = operand(tokens, i, 1, BINDS[token.text])
            if left is None or right is None or tokens[left].text in ("auto", "const"):
                continue
            begin, end = tokens[left].begin, tokens[right].end
            for becomes in CHANGES[token.text]:
                changed = source[begin:token.begin] + becomes + source[token.end:end]
                found.append(Site(name, begin, end, f"{token.text} becomes {becomes}", source[begin:end], changed))
        elif token.kind == "number" and re.fullmatch(r"\d+U?", token.text):
            in_template = tokens[i - 1].text == "<" and not tokens[i - 1].spaced
            before_bracket = i + 1 < len(tokens) and tokens[i + 1].text == ">" and not tokens[i + 1].spaced
            if in_template or before_bracket:
                continue
            value = int(token.text.rstrip("U"))
            becomes = str(value + 1) + ("U" if token.text.endswith("U") else "")
            found.append(Site(name, token.begin, token.end, f"{token.text} becomes {becomes}", token.text, becomes))
        elif token.text in ("true", "false"):
            becomes = "false" if token.text == "true" else "true"
            found.append(Site(name, token.begin, token.end, f"{token.text} becomes {becomes}", token.text, becomes))
    return found


@functools.lru_cache(maxsize=None)
def text_of(path):
    return path.read_text()


def line_of(source, position):
    return source.count("\n", 0, position) + 1


def overlap(one, other):
    return one.file == other.file and one.begin < other.end and other.begin < one.end


class Mutants:
    def __init__(self, wish):
        self.wish = wish
        self.tree = pathlib.Path(wish.tree).resolve()
        self.copy = self.tree / "build" / "mutants" / "tree"
        self.build = self.copy / "build" / "q"
        names = sorted(str(p.relative_to(self.tree)) for folder in FOLDERS
                       for p in (self.tree / "src" / folder).iterdir() if p.suffix in (".cpp", ".h"))
        candidates = [site for name in names for site in sites_of(self.tree / name, name)]
        # By their words and not by their places in a list: what is edited elsewhere changes nothing here.
        candidates.sort(key=self.rank)
        self.candidates = candidates
        self.folders = FOLDERS
        self.taken = set()
        self.total = len(candidates)
        self.chosen = []
        # Chosen over all folders, so that a part of them is a part of the whole.
        self.choose()
        self.chosen = [site for site in self.chosen if site.file.split("/")[1] in wish.folders]
        self.wish.count = len(self.chosen)
        self.folders = wish.folders

    def rank(self, site):
        return hashlib.sha256(f"{self.wish.seed} {self.words_of(site)[0]}".encode()).digest()

    def choose(self):
        """Fills up what is chosen; nothing overlaps, and no line is taken twice for the same words."""
        while len(self.chosen) < self.wish.count and self.candidates:
            site = self.candidates.pop()
            if site.file.split("/")[1] not in self.folders or self.words_of(site)[0] in self.taken:
                continue
            if not any(overlap(site, other) for other in self.chosen):
                self.chosen.append(site)
                self.taken.add(self.words_of(site)[0])

    def write(self):
        """The copy with all changes in it. A file that stands as it should is not touched."""
        wanted = {"src/canvas/mutant.h": HEADER}
        by_file = collections.defaultdict(list)
        for number, site in enumerate(self.chosen, 1):
            by_file[site.file].append((number, site))
        for name, sites in by_file.items():
            text = (self.tree / name).read_text()
            for number, site in sorted(sites, key=lambda s: -s[1].begin):
                text = f"{text[:site.begin]}(mutant() == {number} ? ({site.changed}) : ({site.original})){text[site.end:]}"
            place = text.index("#pragma once\n") + 13 if name.endswith(".h") else 0
            wanted[name] = f'{text[:place]}#include "canvas/mutant.h"\n{text[place:]}'
        for source in subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=self.tree, check=True,
                                     capture_output=True, text=True).stdout.split("\n"):
            if source and (self.tree / source).is_file():
                self.put(source, wanted.pop(source, None))
        for name, text in wanted.items():
            self.put(name, text)

    def put(self, name, text):
        target = self.copy / name
        target.parent.mkdir(parents=True, exist_ok=True)
        content = (self.tree / name).read_bytes() if text is None else text.encode()
        if target.exists() and target.read_bytes() == content:
            return
        target.write_bytes(content)
        if text is None:
            shutil.copymode(self.tree / name, target)

    def targets(self):
        names = []
        for folder in self.wish.folders:
            names += [f"{folder}-{p.stem}" for p in sorted((self.tree / "tests" / folder).glob("*_test.cpp"))]
        return names

    def compile(self):
        """Builds the tests. What the compiler does not take, or warns of, it has caught: others are chosen for it."""
        configure = ["cmake", "-S", ".", "-B", str(self.build), "-G", "Ninja", "-DBUILD_TESTING=ON",
                     "-DGRIDWRIGHT_WARNINGS_AS_ERRORS=ON", "-DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON"] + shlex.split(self.wish.cmake)
        for _ in range(10):
            self.choose()
            self.write()
            subprocess.run(configure, cwd=self.copy, check=True, stdout=subprocess.DEVNULL)
            built = subprocess.run(["cmake", "--build", str(self.build), "-j", str(self.wish.jobs), "--target"] +
                                   self.targets() + ["--", "-k", "0"], cwd=self.copy, capture_output=True, text=True)
            if built.returncode == 0:
                return
            refused = set(re.findall(r"(src/\w+/\w+\.(?:cpp|h)):(\d+):\d+: error", built.stdout + built.stderr))
            before = len(self.chosen)
            self.chosen = [site for site in self.chosen if not self.is_refused(site, refused)]
            print(f"{before - len(self.chosen)} changes are caught by the compiler", flush=True)
            if len(self.chosen) == before:
                print(built.stdout[-4000:] + built.stderr[-4000:])
                sys.exit("the changed tree does not build")
        sys.exit("too many changes do not compile")

    def is_refused(self, site, refused):
        source = (self.tree / site.file).read_text()
        # The copy has one line more above.
        first, last = line_of(source, site.begin) + 1, line_of(source, site.end) + 1
        return any(file == site.file and first <= int(line) <= last for file, line in refused)

    def run_test(self, target, number, limit):
        """Whether the tests of one program all pass."""
        environment = dict(os.environ, GRIDWRIGHT_MUTANT=str(number), GTEST_FAIL_FAST="1", GTEST_BRIEF="1",
                           QT_QPA_PLATFORM="offscreen")
        try:
            ended = subprocess.run([str(self.build / "tests" / target)], cwd=self.copy, env=environment, timeout=limit,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            return ended.returncode == 0
        except subprocess.TimeoutExpired:
            return False

    def durations(self):
        """How long each program takes with nothing changed; all must pass then."""
        took = {}
        for target in self.targets():
            begin = time.monotonic()
            if not self.run_test(target, 0, 600):
                sys.exit(f"{target} fails with nothing changed")
            took[target] = time.monotonic() - begin
        return took

    def catch(self, number, took):
        """The program that notices the change, or None."""
        folder = self.chosen[number - 1].file.split("/")[1]
        own = sorted((t for t in took if t.startswith(folder + "-")), key=took.get)
        for target in own:
            if not self.run_test(target, number, 20 + 20 * took[target]):
                return target
        return None

    def run(self):
        print(f"{self.total} changes could be made, seed {self.wish.seed}", flush=True)
        self.compile()
        took = self.durations()
        print(f"the tests take {sum(took.values()):.0f} s with nothing changed", flush=True)
        with concurrent.futures.ThreadPoolExecutor(self.wish.jobs) as pool:
            caught = list(pool.map(lambda n: self.catch(n, took), range(1, len(self.chosen) + 1)))
        return self.tell(caught)

    def words_of(self, site):
        """What is changed, by the words of its line, and the line's number."""
        source = text_of(self.tree / site.file)
        line = line_of(source, site.begin)
        text = " ".join(source.split("\n")[line - 1].split())
        place = site.begin - source.rfind("\n", 0, site.begin)
        return f"{site.file}: {text}: {site.change} at {place}", line

    def tell(self, caught):
        equal = (self.tree / "tests/trials/equal_mutants.txt").read_text().split("\n")
        unnamed = 0
        for number, (site, test) in enumerate(zip(self.chosen, caught), 1):
            words, line = self.words_of(site)
            if test is not None:
                print(f"[{number}/{len(caught)}] caught by {test}: {words} (line {line})")
                continue
            named = any(entry.startswith(words) for entry in equal)
            unnamed += not named
            print(f"[{number}/{len(caught)}] lives{', named as equal' if named else ''}: {words} (line {line})")
        count = sum(test is not None for test in caught)
        print(f"{count} of {len(caught)} are caught, {unnamed} live that are not named")
        return 0 if count >= LEAST_CAUGHT * len(caught) and unnamed == 0 else 1


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("tree")
    parser.add_argument("--seed", type=int, default=21)
    parser.add_argument("--count", type=int, default=60)
    parser.add_argument("--folders", nargs="+", choices=FOLDERS, default=FOLDERS)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--cmake", default="-DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS=-O1")
    parser.add_argument("--list", action="store_true", help="only says what would be changed")
    wish = parser.parse_args()
    mutants = Mutants(wish)
    if wish.list:
        for site in mutants.chosen:
            print(mutants.words_of(site)[0])
        return 0
    return mutants.run()


if __name__ == "__main__":
    sys.exit(main())
