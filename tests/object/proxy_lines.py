"""Draws pictures of members with ezdxf: each line of the input is one picture in hexadecimal; prints for each its
figures, one a line, then a line with a full stop. A figure is its kind and its numbers: points of a polyline, centre and
radius of a circle, centre, radius and both angles of an arc, points of a filled polygon."""
import math
import sys

try:
    import ezdxf
    from ezdxf.proxygraphic import ProxyGraphic
except ImportError:
    print("no ezdxf")
    sys.exit(0)


def figure(entity):
    kind = entity.dxftype()
    if kind == "POLYLINE":
        return "polyline", [c for v in entity.vertices for c in v.dxf.location]
    if kind == "CIRCLE":
        return "circle", [*entity.dxf.center, entity.dxf.radius]
    if kind == "ARC":
        angles = [math.radians(entity.dxf.start_angle), math.radians(entity.dxf.end_angle)]
        return "arc", [*entity.dxf.center, entity.dxf.radius, *angles]
    if kind == "HATCH":
        return "polygon", [c for v in entity.paths[0].vertices for c in v[:2]]
    return kind, []


document = ezdxf.new("R2000")
for line in sys.stdin:
    for entity in ProxyGraphic(bytes.fromhex(line.strip()), document).virtual_entities():
        kind, numbers = figure(entity)
        print(kind, *(repr(float(n)) for n in numbers))
    print(".")
