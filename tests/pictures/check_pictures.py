"""check_pictures.py WRITE_PICTURES: the SVG, DXF and PNG files that the program WRITE_PICTURES
makes of figures can be read by other programs, and hold what its lists of the figures say: every
item, on its layer, in its place, in its colour; a PNG file as far as nothing else covers it. Then
spoils one thing after the other and makes sure that it is found."""

import functools
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

LAYERS = ("plate", "stiffener", "compartment", "text")
SVG_ORDER = ("compartment", "plate", "stiffener", "text")
SVG = "{http://www.w3.org/2000/svg}"
TAGS = {"line": "polyline", "area": "polygon", "text": "text"}
ANCHORS = ("start", "middle", "end")
# Half a capital, and all of it, of a letter's body.
HALF_CAPITAL, CAPITAL = 0.36, 0.72
ZOOM = 3
SVG_DOTS, PNG_DOTS = ZOOM * 96 / 25.4, 300 / 25.4
# The colour of an entity that has that of its layer.
BY_LAYER = 256


class Different(Exception):
    """A file does not hold what the list says."""


def require(condition, text):
    if not condition:
        raise Different(text)


def near(a, b, most, text):
    require(abs(a - b) <= most, f"{text}: {a}, not {b}")


class Item:
    def __init__(self, line):
        values, _, text = line.partition(" :")
        self.shape, layer, colour, size, side, *places = values.split()
        self.layer = LAYERS[int(layer)]
        colour = int(colour)
        self.rgb = (colour & 255, colour >> 8 & 255, colour >> 16 & 255)
        self.size, self.side = float(size), int(side)
        numbers = [float(place) for place in places]
        self.points = list(zip(numbers[::2], numbers[1::2]))
        self.text = "".join(chr(int(letter)) for letter in text.split())


class Figure:
    def __init__(self, text):
        sheet, *items = text.splitlines()
        self.width, self.height, self.scale, *origin = (float(v) for v in sheet.split()[1:])
        self.origin = origin
        self.items = [Item(line) for line in items]

    def of(self, layer):
        return [item for item in self.items if item.layer == layer]

    def in_ship(self, point):
        return ((point[0] - self.origin[0]) / self.scale,
                (self.origin[1] - point[1]) / self.scale)


# ---- SVG -----------------------------------------------------------------------------------------

def svg_colour(text):
    require(re.fullmatch("#[0-9a-f]{6}", text or ""), f"colour {text}")
    return tuple(int(text[i:i + 2], 16) for i in (1, 3, 5))


def compare_svg_item(element, item):
    require(element.tag == SVG + TAGS[item.shape], f"{element.tag} is not a {item.shape}")
    if item.shape == "text":
        near(float(element.get("x")), item.points[0][0], 0.001, "x")
        near(float(element.get("y")), item.points[0][1] + HALF_CAPITAL * item.size, 0.001, "y")
        near(float(element.get("font-size")), item.size, 0.001, "size")
        require(element.get("text-anchor") == ANCHORS[item.side], "side of a text")
        require(element.text == item.text, f"text {element.text!r}, not {item.text!r}")
        require(svg_colour(element.get("fill")) == item.rgb, "colour of a text")
        return
    points = [tuple(map(float, point.split(","))) for point in element.get("points").split()]
    require(len(points) == len(item.points), "number of points")
    for found, expected in zip(points, item.points):
        near(found[0], expected[0], 0.001, "x of a point")
        near(found[1], expected[1], 0.001, "y of a point")
    if item.shape == "line":
        near(float(element.get("stroke-width")), item.size, 0.001, "width")
        require(element.get("fill") == "none", "a filled line")
    require(svg_colour(element.get("stroke" if item.shape == "line" else "fill")) == item.rgb,
            "colour")


def compare_svg(text, figure):
    try:
        root = xml.etree.ElementTree.fromstring(text)
    except xml.etree.ElementTree.ParseError as error:
        raise Different(f"no XML: {error}") from error
    require(root.tag == SVG + "svg", "no SVG")
    near(float(root.get("width").removesuffix("mm")), figure.width, 0.001, "width")
    near(float(root.get("height").removesuffix("mm")), figure.height, 0.001, "height")
    box = [float(value) for value in root.get("viewBox").split()]
    require(box[:2] == [0, 0], "view box")
    near(box[2], figure.width, 0.001, "width of the view box")
    groups = list(root)
    require([group.get("id") for group in groups] == list(SVG_ORDER), "groups")
    for group in groups:
        items = figure.of(group.get("id"))
        require(len(group) == len(items), f"{len(group)} items, not {len(items)}")
        for element, item in zip(group, items):
            compare_svg_item(element, item)


def run(command, data=None):
    try:
        result = subprocess.run(command, input=data, capture_output=True, check=False)
    except FileNotFoundError as error:
        raise SystemExit(f"check_pictures.py needs the program {command[0]}") from error
    require(result.returncode == 0, f"{command[0]}: {result.stderr.decode()}")
    return result.stdout


def shows_text(item, colour_at, dots):
    """Whether a dot near the text's place has its colour."""
    x, y = item.points[0]
    left, right = ((0, 4), (-2, 2), (-4, 0))[item.side]
    rows = range(int((y - item.size) * dots), int((y + item.size) * dots))
    columns = range(int((x + left * item.size) * dots), int((x + right * item.size) * dots))
    return any(colour_at(column, row) == item.rgb for row in rows for column in columns)


def compare_raster(png, dots, figure):
    """It shows every item in its colour, but for what is drawn over it. Small letters are too thin
    for that."""
    require(png[12:16] == b"IHDR", "no PNG")
    width, height = struct.unpack(">II", png[16:24])
    pixels = run(["convert", "png:-", "-depth", "8", "rgb:-"], png)
    require(len(pixels) == 3 * width * height, "size of the raster")
    near(width, figure.width * dots, 1, "width of the raster")
    near(height, figure.height * dots, 1, "height of the raster")

    def colour_at(column, row):
        first = 3 * (row * width + column)
        return tuple(pixels[first:first + 3])

    for item in figure.items:
        if item.shape == "text" and item.size >= 3:
            require(shows_text(item, colour_at, dots), f"'{item.text}' is not seen")
    drawn = [item for item in figure.items if item.shape != "text"]
    seen = total = 0
    for item in drawn:
        if item.shape == "line":
            place = [sum(values) / 2 for values in zip(*item.points[:2])]
        elif len(item.points) == 4:
            place = [sum(values) / 4 for values in zip(*item.points)]
        else:
            continue
        column, row = int(place[0] * dots), int(place[1] * dots)
        if not (0 <= column < width and 0 <= row < height):
            continue
        total += 1
        seen += colour_at(column, row) == item.rgb
    require(not drawn or total > 0, "nothing to look at")
    require(seen >= 0.9 * total, f"{seen} of {total} items are seen in their colour")


def compare_png(png, figure):
    compare_raster(png, PNG_DOTS, figure)


# ---- DXF -----------------------------------------------------------------------------------------

def compare_dxf_item(entity, item, figure, ezdxf):
    places = [figure.in_ship(point) for point in item.points]
    require(entity.dxf.layer == item.layer.upper(), "layer")
    if item.shape == "text":
        require(entity.dxftype() == "TEXT", f"{entity.dxftype()} is not a text")
        # What the module leaves of the format's marks: numbers of letters, and "%%%" for "%".
        text = ezdxf.decode_dxf_unicode(entity.plain_text()).replace("%%%", "%")
        require(text == item.text, f"text {text!r}, not {item.text!r}")
        near(entity.dxf.height, CAPITAL * item.size / figure.scale, 1e-6, "height")
        require((entity.dxf.halign, entity.dxf.valign) == (item.side, 2), "side of a text")
        found = [entity.dxf.align_point]
    elif item.shape == "line" and len(places) == 2:
        require(entity.dxftype() == "LINE", f"{entity.dxftype()} is not a line")
        found = [entity.dxf.start, entity.dxf.end]
    else:
        require(entity.dxftype() == "POLYLINE", f"{entity.dxftype()} is not a polyline")
        require(bool(entity.is_closed) == (item.shape == "area"), "closed")
        found = list(entity.points())
    require(len(found) == len(places), "number of points")
    for point, expected in zip(found, places):
        near(point[0], expected[0], 1e-6, "x of a point")
        near(point[1], expected[1], 1e-6, "y of a point")
    compare_dxf_colour(entity, item, ezdxf)


def distance(a, b):
    return sum((x - y) ** 2 for x, y in zip(a, b))


@functools.lru_cache
def least_distance(rgb, palette):
    return min(distance(rgb, other) for other in palette)


@functools.lru_cache
def palette_of(ezdxf):
    # 7 is black on paper.
    return tuple((0, 0, 0) if number == 7 else ezdxf.colors.aci2rgb(number)
                 for number in range(1, 256))


def compare_dxf_colour(entity, item, ezdxf):
    if item.layer == "compartment":
        require(entity.dxf.color == BY_LAYER, "colour of a compartment")
        return
    palette = palette_of(ezdxf)
    number = entity.dxf.color
    if number == BY_LAYER:
        number = entity.doc.layers.get(entity.dxf.layer).color
    # Programs differ a little in the greys.
    near(distance(item.rgb, palette[number - 1]), least_distance(item.rgb, palette), 40,
         "distance of the colour")


def compare_dxf(text, figure):
    try:
        import ezdxf
        import ezdxf.bbox
    except ImportError as error:
        raise SystemExit("check_pictures.py needs the package python3-ezdxf") from error
    with tempfile.NamedTemporaryFile(suffix=".dxf") as file:
        file.write(text.encode("ascii"))
        file.flush()
        try:
            drawing = ezdxf.readfile(file.name)
        except (ezdxf.DXFError, ValueError, KeyError) as error:
            raise Different(f"no DXF: {error}") from error
    require(drawing.dxfversion == "AC1009", f"release {drawing.dxfversion}")
    faults = drawing.audit()
    require(not faults.has_errors and not faults.has_fixes, f"{faults.errors} {faults.fixes}")
    for layer in LAYERS:
        require(layer.upper() in drawing.layers, f"no layer {layer}")
    entities = list(drawing.modelspace())
    require(len(entities) == len(figure.items), f"{len(entities)} items, not {len(figure.items)}")
    for entity, item in zip(entities, figure.items):
        compare_dxf_item(entity, item, figure, ezdxf)
    corners = [figure.in_ship((0, figure.height)), figure.in_ship((figure.width, 0))]
    for name, corner in zip(("$EXTMIN", "$EXTMAX"), corners):
        for found, expected in zip(drawing.header[name], corner):
            near(found, expected, 1e-6, name)
    lines = [item for item in figure.items if item.shape != "text"]
    if lines and all(entity.dxftype() != "TEXT" for entity in entities):
        extent = ezdxf.bbox.extents(entities)
        places = [figure.in_ship(point) for item in lines for point in item.points]
        for axis in (0, 1):
            near(extent.extmin[axis], min(place[axis] for place in places), 1e-6, "extent")
            near(extent.extmax[axis], max(place[axis] for place in places), 1e-6, "extent")


# ---- What must be found --------------------------------------------------------------------------

def spoiled(text, pattern, replacement):
    changed, count = re.subn(pattern, replacement, text, count=1)
    if count != 1:
        raise SystemExit(f"check_pictures.py: {pattern} is not there to be spoiled")
    return changed


def must_differ(compare, text, figure, title):
    try:
        compare(text, figure)
    except Different:
        return 0
    print(f"not found: {title}")
    return 1


def find_spoiled(folder):
    texts, section = folder / "texts", folder / "section1"
    missed = 0
    for base, compare, suffix, pattern, replacement, title in (
            (texts, compare_svg, ".svg", "&lt;", "<", "a mark of XML in a text"),
            (texts, compare_svg, ".svg", "text-anchor=\"middle\"", "text-anchor=\"end\"", "a side"),
            (section, compare_svg, ".svg", "<polyline [^>]*>", "", "a line that is missing"),
            (section, compare_svg, ".svg", "points=\"[0-9]+", "points=\"9", "a point elsewhere"),
            (section, compare_svg, ".svg", "#0000ff", "#0000fe", "a colour"),
            (texts, compare_dxf, ".dxf", r"\\U\+00C9", "E", "a letter"),
            (texts, compare_dxf, ".dxf", "AC1009", "AC1015", "a release"),
            (section, compare_dxf, ".dxf", "\nLINE\n(.*\n){13}", "\n", "a line that is missing"),
            (section, compare_dxf, ".dxf", "VERTEX\n8\nPLATE\n10\n", "VERTEX\n8\nPLATE\n10\n1",
             "a corner elsewhere"),
            (section, compare_dxf, ".dxf", "\n8\nSTIFFENER\n", "\n8\nPLATE\n", "a layer")):
        text = base.with_suffix(suffix).read_bytes().decode("utf-8").replace("\r\n", "\n")
        figure = Figure(base.with_suffix(".txt").read_text(encoding="ascii"))
        compare(text, figure)
        missed += must_differ(compare, spoiled(text, pattern, replacement), figure, title)
    for base, other in ((texts, section), (section, folder / "section2")):
        png = other.with_suffix(".png").read_bytes()
        figure = Figure(base.with_suffix(".txt").read_text(encoding="ascii"))
        sheet = Figure(other.with_suffix(".txt").read_text(encoding="ascii"))
        figure.width, figure.height = sheet.width, sheet.height
        missed += must_differ(compare_png, png, figure, f"another picture than {base.name}")
    return missed


def main(program):
    faults = 0
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        subprocess.run([program, name], check=True)
        lists = sorted(folder.glob("*.txt"))
        if len(lists) != 11:
            raise SystemExit(f"check_pictures.py: {len(lists)} figures")
        for path in lists:
            figure = Figure(path.read_text(encoding="ascii"))
            try:
                compare_svg(path.with_suffix(".svg").read_text(encoding="utf-8"), figure)
                compare_dxf(path.with_suffix(".dxf").read_text(encoding="ascii"), figure)
                drawn = run(["rsvg-convert", f"--zoom={ZOOM}", path.with_suffix(".svg")])
                compare_raster(drawn, SVG_DOTS, figure)
                compare_png(path.with_suffix(".png").read_bytes(), figure)
            except Different as difference:
                print(f"{path.stem}: {difference}")
                faults += 1
        faults += find_spoiled(folder)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
