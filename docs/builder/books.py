"""The documents on paper: title page, contents with page numbers, the pages as chapters, index; set by WeasyPrint."""
import html
import pathlib
import re

import weasyprint
from docutils import nodes
from docutils.io import StringOutput
from docutils.utils import new_document
from sphinx import addnodes
from sphinx.environment.adapters.indexentries import IndexEntries

from pages import PICTURES, PageBuilder, PageTranslator

HERE = pathlib.Path(__file__).resolve().parent
SCHEME = 'book:'   # what links to other pages begin with until the pages stand in one document
DEEPEST_CONTENTS = 2
SHORT_TABLE = 12   # rows of a table that is not broken
FEW_PAGES = 1      # a book of so few pages has no index
OVERVIEW = 'Overview'   # the start page as a chapter
LONG_WORD = re.compile('<span class="pre">([^<]{25,})</span>')   # of code; shorter ones are not broken
SIGN_TO_BREAK_AT = re.compile(r'(?<=\w[/|_])(?=\w)')
INDEX_ROW = re.compile('<p class="(?:entry|sub)">.*?</p>')
INDEX_LINK = re.compile('(?:, )?<a href="#([^"]*)"></a>')

BOOK = '''<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><title>{title} - {subtitle}</title><meta name="author" content="{author}">
<link rel="stylesheet" href="{style}"></head><body>
<section class="cover"><img src="{icon}" alt=""><h1>{title}</h1><p class="subtitle">{subtitle}</p>
<p class="edition">Version {version}<br>{date}</p></section>
<nav class="contents"><h2>Contents</h2>
{contents}</nav>
<main>{body}</main>
{index}</body></html>
'''


class BookTranslator(PageTranslator):
    """Every page of the source begins a chapter."""

    def visit_start_of_file(self, node):
        self.section_level = 0

    def depart_start_of_file(self, node):
        pass

    def visit_section(self, node):
        self.section_level += 1
        self.body.append('<section>\n')

    def visit_title(self, node):
        if isinstance(node.parent, nodes.section):  # anchors before the heading would be a place for a page to end
            node['ids'] = node.parent['ids']
        super().visit_title(node)

    def visit_Text(self, node):
        start = len(self.body)
        super().visit_Text(node)
        if self.protect_literal_text:
            self.body[start:] = [LONG_WORD.sub(breakable, piece) for piece in self.body[start:]]

    def visit_table(self, node):
        if len(list(node.findall(nodes.row))) <= SHORT_TABLE:
            node['classes'].append('short')
        super().visit_table(node)


class BookBuilder(PageBuilder):
    name = 'korvabooks'
    epilog = 'The books are in %(outdir)s.'
    balanced_formulas = False

    @property
    def default_translator_class(self):
        return BookTranslator

    def inline_formula(self, formula, name, text):
        return (f'<img class="formula" src="{name}" alt="{text}" '
                f'style="height: {formula.height:.4f}em; vertical-align: {-formula.depth:.4f}em">')

    def get_target_uri(self, docname, typ=None):
        return SCHEME + docname

    def get_relative_uri(self, from_, to, typ=None):
        return self.get_target_uri(to)

    def get_outdated_docs(self):
        return 'all documents'

    def write(self, *ignored):
        self.begin_pages()
        self.prepare_writing(self.env.all_docs)
        self.books = [(file, title, subtitle, self.book(title, subtitle, pages or self.all_pages()))
                      for file, title, subtitle, pages in self.config.korva_books
                      if all(page in self.env.all_docs for page in pages or [])]

    def finish(self):
        pathlib.Path(self.outdir, PICTURES).mkdir(exist_ok=True)
        self.copy_image_files()
        for file, _, _, text in self.books:
            pathlib.Path(self.outdir, pathlib.Path(file).stem + '.html').write_text(text, encoding='utf-8')
            self.set_book(text).write_pdf(pathlib.Path(self.outdir, file))

    def set_book(self, text):
        """The book, set again if an index entry has a page twice."""
        base = str(self.outdir) + '/'
        book = weasyprint.HTML(string=text, base_url=base).render()
        page_of = {anchor: number for number, page in enumerate(book.pages) for anchor in page.anchors}
        once = INDEX_ROW.sub(lambda row: without_doubles(row.group(), page_of), text)
        return book if once == text else weasyprint.HTML(string=once, base_url=base).render()

    def all_pages(self):
        root = self.config.root_doc
        return [root, *(docname for toctree in self.env.get_doctree(root).findall(addnodes.toctree)
                        for _, docname in toctree['entries'])]

    def book(self, title, subtitle, pages):
        body = new_document('', self.docsettings)
        contents = []
        for docname in pages:
            chapter = self.chapter(docname, pages)
            entries = headings(chapter, 1)
            contents += entries[:1] if docname in self.config.korva_flat_pages else entries
            body += chapter
        self.docwriter.write(body, StringOutput(encoding='unicode'))
        self.docwriter.assemble_parts()
        fragment = self.docwriter.parts['fragment']
        date = self.config.korva_revision_date
        return BOOK.format(title=html.escape(title), subtitle=html.escape(subtitle), author=html.escape(self.config.author),
                           style=(HERE / 'print.css').as_uri(), icon=(HERE.parents[1] / 'desktop/resources/korva-strond.svg').as_uri(),
                           version=self.config.release, date=f'{date.day} {date:%B %Y}', contents=contents_list(contents),
                           body=fragment, index=self.index(pages, fragment) if len(pages) > FEW_PAGES else '')

    def chapter(self, docname, pages):
        """A page with its links resolved; anchors carry the page's name so that they are told apart in the book."""
        tree = self.env.get_doctree(docname)
        self.env.resolve_references(tree, docname, self)
        self.post_process_images(tree)
        if docname == self.config.root_doc:
            next(tree.findall(nodes.title)).children = [nodes.Text(OVERVIEW)]
            for toctree in list(tree.findall(addnodes.toctree)):
                toctree.parent.parent.remove(toctree.parent)
        for node in list(tree.findall(nodes.Element)):
            node['ids'] = [anchor_of(docname, name) for name in node['ids']]
            if 'refid' in node:
                node['refid'] = anchor_of(docname, node['refid'])
            if isinstance(node, nodes.reference) and node.get('refuri', '').startswith(SCHEME):
                self.lead_into_book(node, pages)
        first = next(tree.findall(nodes.section), None)
        if first is not None:
            first['ids'].append(anchor_of(docname))
        chapter = addnodes.start_of_file(docname=docname)
        chapter += tree.children
        return chapter

    def lead_into_book(self, link, pages):
        docname, _, anchor = link['refuri'][len(SCHEME):].partition('#')
        if docname in pages:
            link['refuri'] = '#' + anchor_of(docname, anchor)
        else:  # the text stays, the link leads nowhere on this paper
            link.replace_self(link.children)

    def index(self, pages, body):
        places = {anchor: place for place, anchor in enumerate(re.findall(' id="([^"]*)"', body))}

        def row(name, targets, kind):
            parts = (uri[len(SCHEME):].partition('#') for _, uri in targets)
            anchors = {anchor_of(docname, anchor) for docname, _, anchor in parts if docname in pages}
            links = ', '.join(f'<a href="#{anchor}"></a>' for anchor in sorted(anchors, key=places.__getitem__))
            return f'<p class="{kind}">{html.escape(name)} {links}</p>'

        lines = ['<section class="index"><h1>Index</h1>']
        for letter, entries in IndexEntries(self.env).create_index(self):
            rows = []
            for name, (targets, below, _) in entries:
                rows.append(row(name, targets, 'entry'))
                rows += [row(sub, uris, 'sub') for sub, uris in below]
            lines.append(f'<div><h2>{html.escape(letter)}</h2>{"".join(rows)}</div>')
        return '\n'.join(lines) + '</section>\n'


def breakable(word):
    """A long word of code that may go on in the next line behind some of its signs."""
    return '&#8203;'.join(f'<span class="pre">{piece}</span>' for piece in SIGN_TO_BREAK_AT.split(word.group(1)))


def without_doubles(row, page_of):
    """A row of the index with the first link to each page."""
    seen = set()

    def kept(link):
        page = page_of.get(link.group(1))
        if page in seen:
            return ''
        seen.add(page)
        return link.group()

    return INDEX_LINK.sub(kept, row)


def anchor_of(docname, name=''):
    return f'{docname}--{name}' if name else docname


def headings(tree, level):
    """(level, text, anchor) of the headings that stand in the contents."""
    found = []
    for section in tree.children:
        if isinstance(section, nodes.section):
            found.append((level, section[0].astext(), section['ids'][0]))
            if level < DEEPEST_CONTENTS:
                found += headings(section, level + 1)
    return found


def contents_list(entries):
    return '\n'.join(f'<p class="level{level}"><a href="#{anchor}">{html.escape(text)}</a></p>'
                     for level, text, anchor in entries)
