"""The texts that the program's sources hold, and those that the guide holds."""
import html
import html.parser
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]
HELP = ROOT / "help"
LITERAL = r'"(?:[^"\\\n]|\\.)*"'


def literals(path):
    """Each text of a source file, those that stand side by side as one; comments and includes left out."""
    text = re.sub(r"^\s*#.*$", "", path.read_text(), flags=re.M)
    text = re.sub(r"(" + LITERAL + r")|//[^\n]*", lambda found: found.group(1) or "", text)
    for run in re.finditer(LITERAL + r"(?:\s*" + LITERAL + r")*", text):
        joined = "".join(part[1:-1] for part in re.findall(LITERAL, run.group()))
        yield joined.replace("\\r\\n", "\n").replace("\\n", "\n").replace('\\"', '"')


class Page(html.parser.HTMLParser):
    """A page's words, links, pictures and places."""

    def __init__(self, path):
        super().__init__()
        self.links, self.pictures, self.places, self.words = [], [], set(), []
        self.title = ""
        self.open = []
        self.feed(path.read_text(encoding="ascii"))
        self.text = squeeze(" ".join(self.words))

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        if tag == "a" and "href" in values:
            self.links.append(values["href"])
        if tag == "link":
            self.links.append(values["href"])
        if "name" in values and tag == "a":
            assert values["name"] not in self.places, f"{values['name']} stands twice"
            self.places.add(values["name"])
        if tag == "img":
            assert values.get("alt"), f"{values['src']} has no words for those who cannot see it"
            self.pictures.append(values["src"])
        if tag not in ("img", "br", "link", "meta"):
            self.open.append(tag)

    def handle_endtag(self, tag):
        assert self.open and self.open[-1] == tag, f"</{tag}> closes {self.open[-1:]}, line {self.getpos()[0]}"
        self.open.pop()

    def handle_data(self, data):
        if self.open and self.open[-1] == "title":
            self.title = data
        else:
            self.words.append(data)


def squeeze(text):
    """Words with single blanks between them, none in front of a stop."""
    return re.sub(r"\s+([.,:;)])", r"\1", re.sub(r"\s+", " ", html.unescape(text))).strip()


def pages():
    return {path.name: Page(path) for path in sorted(HELP.glob("*.html"))}
