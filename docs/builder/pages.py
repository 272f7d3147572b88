"""What the builders of the help file and of the books have in common."""
from sphinx.builders.html import StandaloneHTMLBuilder
from sphinx.util import logging
from sphinx.writers.html5 import HTML5Translator

log = logging.getLogger(__name__)

PICTURES = 'pictures'   # the folder of pictures beside the pages


class PageTranslator(HTML5Translator):
    """Links to files of the source tree, which readers do not have, are their texts."""

    def visit_download_reference(self, node):
        pass

    def depart_download_reference(self, node):
        pass


class PageBuilder(StandaloneHTMLBuilder):
    format = 'html'
    search = False
    copysource = False

    def begin_pages(self):
        self.imgpath = self.imagedir = PICTURES
        self.secnumbers, self.fignumbers = {}, {}

    def warn_of_formula(self, node, latex, fault):
        log.warning('a formula that cannot be set: %s: %s', latex, fault, location=node)
        return fault
