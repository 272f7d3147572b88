"""What Sphinx needs to know to make the help file and the manual from these pages."""
import datetime
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / 'docs/builder'))


VERSION = (ROOT / 'src/core/Version.h').read_text(encoding='utf-8')


def version_constant(name):
    """A number of src/core/Version.h, where version and date stand."""
    return int(re.search(rf'\b{name} = (\d+);', VERSION).group(1))


def revision_date():
    year, month, day = re.search(r'kRevisionDate\{std::chrono::year\{(\d+)\}, std::chrono::(\w+),\s*'
                                 r'std::chrono::day\{(\d+)\}', VERSION).groups()
    return datetime.datetime.strptime(f'{day} {month} {year}', '%d %B %Y').date()


project = 'KORVA-STROND'
author = 'The KORVA-STROND contributors'
release = version = '{}.{}.{:02}'.format(
    *(version_constant(name) for name in ('kVersionMajor', 'kVersionMinor', 'kVersionRevision')))
korva_revision_date = revision_date()

extensions = ['myst_parser', 'korva_docs']
myst_enable_extensions = ['dollarmath', 'colon_fence', 'deflist']
myst_heading_anchors = None
root_doc = 'index'
language = 'en'
highlight_language = 'none'
smartquotes = False
nitpicky = True
exclude_patterns = ['_build']

# Pages whose headings do not stand in the contents.
korva_flat_pages = ['glossary']

# The documents on paper: file, title, subtitle, and the pages that they hold; None for all.
korva_books = [
    ('KORVA-STROND.PDF', 'KORVA-STROND', 'Manual', None),
    ('res_tutorial_2010.pdf', 'KORVA Tutorial', 'The first panel, from the start to the results', ['tutorial']),
    ('res_examples_2010.pdf', 'KORVA Examples Tutorial', 'The example projects and what they show', ['examples']),
]
