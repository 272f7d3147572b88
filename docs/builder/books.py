"""The documents on paper: title page, contents with page numbers, the pages as chapters, index; set by WeasyPrint."""
import html
import pathlib

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
            weasyprint.HTML(string=text, base_url=str(self.outdir) + '/').write_pdf(pathlib.Path(self.outdir, file))

    def all_pages(self):
        return [docname for toctree in self.env.get_doctree(self.config.root_doc).findall(addnodes.toctree)
                for _, docname in toctree['entries']]

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
        date = self.config.korva_revision_date
        return BOOK.format(title=html.escape(title), subtitle=html.escape(subtitle), author=html.escape(self.config.author),
                           style=(HERE / 'print.css').as_uri(), icon=(HERE.parents[1] / 'desktop/resources/korva-strond.svg').as_uri(),
                           version=self.config.release, date=f'{date.day} {date:%B %Y}', contents=contents_list(contents),
                           body=self.docwriter.parts['fragment'],
                           index=self.index(pages) if len(pages) > FEW_PAGES else '')

    def chapter(self, docname, pages):
        """A page with its links resolved; anchors carry the page's name so that they are told apart in the book."""
        tree = self.env.get_doctree(docname)
        self.env.resolve_references(tree, docname, self)
        self.post_process_images(tree)
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

    def index(self, pages):
        lines = ['<section class="index"><h1>Index</h1>']
        for letter, entries in IndexEntries(self.env).create_index(self):
            rows = []
            for name, (targets, below, _) in entries:
                rows.append(index_row(name, [uri for _, uri in targets], pages, 'entry'))
                rows += [index_row(sub, [uri for _, uri in uris], pages, 'sub') for sub, uris in below]
            lines.append(f'<div><h2>{html.escape(letter)}</h2>{"".join(rows)}</div>')
        return '\n'.join(lines) + '</section>\n'


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


def index_row(name, uris, pages, kind):
    links = []
    for uri in dict.fromkeys(uris):
        docname, _, anchor = uri[len(SCHEME):].partition('#')
        if docname in pages:
            links.append(f'<a href="#{anchor_of(docname, anchor)}"></a>')
    return f'<p class="{kind}">{html.escape(name)} {", ".join(links)}</p>'
