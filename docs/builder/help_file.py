"""The help file of the help window: plain pages for a text browser, a table of their labels, and the project that
qhelpgenerator makes it from."""
import html
import pathlib

from docutils import nodes
from docutils.io import StringOutput
from sphinx import addnodes
from sphinx.environment.adapters.indexentries import IndexEntries

from pages import PICTURES, PageBuilder, PageTranslator

NAMESPACE = 'org.korva-strond.help'
FOLDER = 'help'
LABELS = 'labels.tsv'   # no kind of file that the search reads
DEEPEST_CONTENTS = 2   # headings up to this level stand in the contents

PAGE = '''<!DOCTYPE html>
<html><head><meta charset="utf-8"><title>{title}</title></head>
<body>
{body}
</body></html>
'''


class PlainTranslator(PageTranslator):
    """Pages without boxes within boxes: anchors are named, sections have only their headings, notes are tables."""

    def __init__(self, document, builder):
        super().__init__(document, builder)
        self.waiting = []  # anchors of sections whose heading comes next

    def starttag(self, node, tagname, suffix='\n', empty=False, **attributes):
        ids = [*attributes.pop('ids', []), *([attributes.pop('id')] if 'id' in attributes else [])]
        ids += node.get('ids', []) if isinstance(node, nodes.Element) else []
        kept = nodes.inline()  # without anchors and classes of its own
        if isinstance(node, nodes.Element):
            kept['classes'] = list(node.get('classes', []))
        tag = super().starttag(kept, tagname, suffix, empty, **attributes)
        return tag + anchors(ids) if tagname in ('p', 'li', 'td', 'th', 'dt') else anchors(ids) + tag

    def visit_section(self, node):
        self.section_level += 1
        self.waiting += node['ids']

    def depart_section(self, node):
        self.section_level -= 1

    def visit_title(self, node):
        level = min(max(self.section_level, 1) + isinstance(node.parent, nodes.compound), 6)  # or a group of pages
        if isinstance(node.parent, nodes.table):
            self.body.append('<p><i>')
            self.context.append('</i></p>\n')
            return
        self.body.append(f'<h{level}>' + anchors(self.waiting))
        self.waiting = []
        self.context.append(f'</h{level}>\n')

    def depart_title(self, node):
        self.body.append(self.context.pop())

    def visit_paragraph(self, node):
        if isinstance(node.parent, (nodes.list_item, nodes.entry)) and node.parent.index(node) == 0:
            self.body.append(anchors(node['ids']))  # no space of its own
            self.context.append('')
        else:
            picture = len(node) == 1 and isinstance(node[0], nodes.image)  # needs no space between lines
            self.body.append(self.starttag(node, 'p', '', **({'CLASS': 'picture'} if picture else {})))
            self.context.append('</p>\n')

    def depart_paragraph(self, node):
        self.body.append(self.context.pop())

    def visit_admonition(self, node, name=''):
        self.body.append('<table class="note" width="100%" cellspacing="0" cellpadding="8"><tr><td class="note">')
        if name:
            self.body.append(f'<p><b>{name.capitalize()}</b></p>')

    def depart_admonition(self, node=None):
        self.body.append('</td></tr></table>\n')

    def visit_table(self, node):
        self.body.append(anchors(node['ids']) + '<table border="1" cellspacing="0" cellpadding="5">\n')

    def depart_table(self, node):
        self.body.append('</table>\n')

    def visit_colspec(self, node):
        node.parent.stubs.append(node.get('stub'))
        raise nodes.SkipNode

    def visit_literal_block(self, node):
        self.body.append('<table class="code" width="100%" cellspacing="0" cellpadding="8"><tr><td class="code"><pre>' +
                         html.escape(node.astext()) + '</pre></td></tr></table>\n')
        raise nodes.SkipNode

    def visit_literal(self, node):
        self.body.append('<code>' + html.escape(node.astext()) + '</code>')
        raise nodes.SkipNode

    def visit_image(self, node):
        source = self.builder.images.get(node['uri'], node['uri'])
        self.body.append(f'<img src="{self.builder.imgpath}/{source}" alt="{self.attval(node.get("alt", ""))}">')
        raise nodes.SkipNode

    def visit_target(self, node):
        self.body.append(anchors(node['ids']))

    def depart_target(self, node):
        pass


def anchors(ids):
    return ''.join(f'<a name="{name}"></a>' for name in dict.fromkeys(ids))


class HelpBuilder(PageBuilder):
    name = 'korvahelp'
    epilog = 'The project of the help file is in %(outdir)s.'
    balanced_formulas = True

    @property
    def default_translator_class(self):
        return PlainTranslator

    def inline_formula(self, formula, name, text):
        return f'<img src="{name}" alt="{text}" style="vertical-align: middle">'

    def write_doc(self, docname, doctree):
        self.begin_pages()
        doctree.settings = self.docsettings
        self.docwriter.write(doctree, StringOutput(encoding='unicode'))
        self.docwriter.assemble_parts()
        page = PAGE.format(title=html.escape(self.env.titles[docname].astext()), body=self.docwriter.parts['fragment'])
        pathlib.Path(self.outdir, docname + '.html').write_text(page, encoding='utf-8')

    def write_doc_serialized(self, docname, doctree):
        self.begin_pages()
        self.post_process_images(doctree)

    def get_outdated_docs(self):
        return self.env.found_docs

    def finish(self):
        pathlib.Path(self.outdir, PICTURES).mkdir(exist_ok=True)
        self.copy_image_files()
        pathlib.Path(self.outdir, LABELS).write_text(''.join(self.labels()), encoding='utf-8')
        self.write_project()

    def write_project(self):
        files = sorted(str(path.relative_to(self.outdir)) for kind in ('*.html', LABELS, PICTURES + '/*', 'math/*')
                       for path in pathlib.Path(self.outdir).glob(kind))
        lines = ['<?xml version="1.0" encoding="UTF-8"?>', '<QtHelpProject version="1.0">',
                 f'<namespace>{NAMESPACE}</namespace>', f'<virtualFolder>{FOLDER}</virtualFolder>', '<filterSection>',
                 '<toc>', *self.contents(), '</toc>', '<keywords>', *self.index_entries(), '</keywords>',
                 '<files>', *(f'<file>{name}</file>' for name in files), '</files>', '</filterSection>',
                 '</QtHelpProject>', '']
        pathlib.Path(self.outdir, 'korva-strond.qhp').write_text('\n'.join(lines), encoding='utf-8')

    def contents(self):
        """The pages in the order of the start page, in its groups."""
        root = self.config.root_doc
        yield section_start(self.env.titles[root].astext(), root + '.html')
        for toctree in self.env.get_doctree(root).findall(addnodes.toctree):
            caption = toctree.get('caption')
            if caption:
                yield section_start(caption, root + '.html')
            for _, docname in toctree['entries']:
                yield from self.entries_of(self.env.tocs[docname],
                                           DEEPEST_CONTENTS if docname in self.config.korva_flat_pages else 1)
            if caption:
                yield '</section>'
        yield '</section>'

    def entries_of(self, items, level):
        for item in items.children:
            reference = next(item.findall(nodes.reference))
            yield section_start(reference.astext(), reference['refuri'] + '.html' + reference['anchorname'])
            for below in item.children[1:]:
                if level < DEEPEST_CONTENTS and isinstance(below, nodes.bullet_list):
                    yield from self.entries_of(below, level + 1)
            yield '</section>'

    def index_entries(self):
        for _, entries in IndexEntries(self.env).create_index(self, group_entries=True):
            for name, (targets, below, _) in entries:
                yield from (keyword(name, uri) for _, uri in targets)
                for sub, uris in below:
                    yield from (keyword(f'{name}, {sub}', uri) for _, uri in uris)

    def labels(self):
        """Lines of a label, a tab, and the place that it stands for. Keywords with an identifier and no name would be
        empty lines of the index."""
        for label, (docname, anchor) in sorted(self.env.get_domain('std').anonlabels.items()):
            if docname in self.env.all_docs:
                yield f'{label}\t{docname}.html#{anchor}\n'

    def get_relative_uri(self, from_, to, typ=None):
        return self.get_target_uri(to)

    def get_target_uri(self, docname, typ=None):
        return '' if docname == 'genindex' else docname + '.html'


def section_start(title, reference):
    return f'<section title="{html.escape(title)}" ref="{html.escape(reference)}">'


def keyword(name, uri):
    return f'<keyword name="{html.escape(name)}" ref="{html.escape(uri)}"/>'
