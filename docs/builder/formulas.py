"""Formulas as pictures: TeX text set by matplotlib's mathtext into SVG files with outlines, no fonts."""
import hashlib
import pathlib

import matplotlib
from docutils import nodes
from matplotlib.font_manager import FontProperties
from matplotlib.path import Path
from matplotlib.textpath import TextToPath

matplotlib.rcParams['mathtext.fontset'] = 'stix'
matplotlib.rcParams['mathtext.default'] = 'it'

SIZE = 100.0     # units of the SVG files per em
MARGIN = 6.0     # around a formula, in those units
AXIS = 26.0      # half the height of a small letter: what "middle" means in a line of text
LETTERS = {Path.MOVETO: 'M', Path.LINETO: 'L', Path.CURVE3: 'Q', Path.CURVE4: 'C', Path.CLOSEPOLY: 'Z'}


def outline(text):
    """The SVG path of a formula, and its width, height above and depth below the base line."""
    path = TextToPath()
    font = FontProperties(size=SIZE)
    scale = SIZE / path.FONT_SCALE
    width, height, depth = (scale * value for value in path.get_text_width_height_descent(text, font, True))
    corners, codes = path.get_text_path(font, text, True)
    pieces = []
    waiting = []
    left = {Path.CURVE3: 2, Path.CURVE4: 3}
    for (x, y), code in zip(corners, codes):
        if code == Path.CLOSEPOLY:
            pieces.append('Z')
            continue
        waiting.append(f'{x * scale:.2f} {-y * scale:.2f}')
        if len(waiting) == left.get(code, 1):
            pieces.append(LETTERS[code] + ' '.join(waiting))
            waiting = []
    return ''.join(pieces), width, height - depth, depth


class Formula:
    """A formula set; sizes in em. `balanced` pads it so that its middle is the middle of a line of text."""

    def __init__(self, latex, balanced):
        path, width, above, below = outline(f'${latex}$')
        above, below = above + MARGIN, below + MARGIN
        if balanced:
            reach = max(above - AXIS, below + AXIS)
            above, below = reach + AXIS, reach - AXIS
        width += 2 * MARGIN
        self.width, self.height, self.depth = width / SIZE, (above + below) / SIZE, below / SIZE
        self.svg = (f'<svg xmlns="http://www.w3.org/2000/svg" width="{self.width:.4f}em" height="{self.height:.4f}em" '
                    f'viewBox="{-MARGIN:.2f} {-above:.2f} {width:.2f} {above + below:.2f}">'
                    f'<path fill="#000000" d="{path}"/></svg>\n')


def formula_file(translator, node):
    """Writes the picture of a formula; the formula and the name of its file for the page."""
    latex = ' '.join(node.astext().split())
    if isinstance(node, nodes.math_block):
        latex = latex.replace(r'\frac', r'\dfrac')  # there is room for figures of full size
    try:
        formula = Formula(latex, translator.builder.balanced_formulas)
    except ValueError as fault:
        raise nodes.SkipNode from translator.builder.warn_of_formula(node, latex, fault)
    folder = pathlib.Path(translator.builder.outdir, 'math')
    folder.mkdir(exist_ok=True)
    name = 'm' + hashlib.sha256(formula.svg.encode()).hexdigest()[:16] + '.svg'
    (folder / name).write_text(formula.svg, encoding='utf-8')
    return formula, 'math/' + name, translator.attval(latex)


def show_inline_formula(translator, node):
    formula, name, text = formula_file(translator, node)
    translator.body.append(translator.builder.inline_formula(formula, name, text))
    raise nodes.SkipNode


def show_formula(translator, node):
    formula, name, text = formula_file(translator, node)
    picture = f'<img src="{name}" alt="{text}" style="height: {formula.height:.4f}em">'
    translator.body.append(f'<div class="math">{picture}</div>\n')
    raise nodes.SkipNode


def depart_nothing(translator, node):
    pass
