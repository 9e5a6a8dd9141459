# Looks at a DXF with a reader of another hand: prints "ezdxf missing" where there is none, else the errors that its audit
# finds, then each plain entity of model space with its numbers.
import sys

try:
    import ezdxf
except ImportError:
    print("ezdxf missing")
    sys.exit(0)

drawing = ezdxf.readfile(sys.argv[1])
for error in drawing.audit().errors:
    print("error", error.code, error.message)
for entity in drawing.modelspace():
    kind = entity.dxftype()
    d = entity.dxf
    if kind == "LINE":
        print("LINE", *d.start, *d.end)
    elif kind == "CIRCLE":
        print("CIRCLE", *d.center, d.radius)
    elif kind == "ARC":
        print("ARC", *d.center, d.radius, round(d.start_angle, 9), round(d.end_angle, 9))
    elif kind == "LWPOLYLINE":
        print("LWPOLYLINE", *(n for point in entity.get_points("xyb") for n in point))
    elif kind == "TEXT":
        print("TEXT", *d.insert, d.height, d.text)
    else:
        print(kind)
