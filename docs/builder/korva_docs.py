"""The Sphinx extension behind help file and manual: formulas, anchors of index entries, and the two builders."""
from docutils import nodes
from sphinx import addnodes
from sphinx.transforms import SphinxTransform

from books import BookBuilder
from formulas import depart_nothing, show_formula, show_inline_formula
from help_file import HelpBuilder


class IndexEntriesPointToHeadings(SphinxTransform):
    """An entry directly below a heading leads to the heading, not to the line behind it."""
    default_priority = 400

    def apply(self, **kwargs):
        for index in list(self.document.findall(addnodes.index)):
            section = index.parent
            place = section.index(index)
            if not isinstance(section, nodes.section) or not isinstance(section[place - 1], nodes.title):
                continue
            anchor = section['ids'][0]
            index['entries'] = [(kind, text, anchor, main, key) for kind, text, _, main, key in index['entries']]
            if place + 1 < len(section) and isinstance(section[place + 1], nodes.target):
                section.remove(section[place + 1])


def setup(app):
    app.add_config_value('korva_books', [], 'env')
    app.add_config_value('korva_flat_pages', [], 'env')
    app.add_config_value('korva_revision_date', None, 'env')
    app.add_html_math_renderer('mathtext', (show_inline_formula, depart_nothing), (show_formula, depart_nothing))
    app.connect('config-inited', lambda _, config: config.__setitem__('html_math_renderer', 'mathtext'))
    app.add_transform(IndexEntriesPointToHeadings)
    app.add_builder(HelpBuilder)
    app.add_builder(BookBuilder)
    return {'parallel_read_safe': True, 'parallel_write_safe': False}
