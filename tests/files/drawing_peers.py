"""Looks at a DXF with ezdxf: prints the errors that its audit finds, then for each entity that carries a picture its
handle and the picture's figures, one a line, then a full stop. A figure is its kind and its numbers: points of a polyline,
centre and radius of a circle, centre, radius and both angles of an arc."""
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
    if kind in ("TEXT", "MTEXT"):
        return "text", [*entity.dxf.insert]
    return kind, []


drawing = ezdxf.readfile(sys.argv[1])
for error in drawing.audit().errors:
    print("error", error.code, error.message)
for entity in drawing.modelspace():
    if not entity.proxy_graphic:
        continue
    print("entity", entity.dxf.handle, entity.dxftype())
    for part in ProxyGraphic(entity.proxy_graphic, drawing).virtual_entities():
        kind, numbers = figure(part)
        print(kind, *(repr(float(n)) for n in numbers))
    print(".")
