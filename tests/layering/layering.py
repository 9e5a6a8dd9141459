"""Reads the includes of src/ and apps/ and tells each one that the layers don't allow: layering.py ROOT

Who may know whom, from the top down:

    apps > frame > generators > profiles > object, modifiers, editing > records > support > host
    host/io > host/companion, host/db, host/gi, host/ed > host/rx, host/ge, host/os

A layer knows those below it and those on its own step. Beyond that: member code knows the host by its umbrella headers
only and nothing else outside the C++ standard library; in the host the operating system stays in os, the drawing
libraries in io and gi; no header includes itself by a detour; each header has its #pragma once.
"""
import pathlib
import re
import sys

HOST_BASE = {"host/os", "host/rx", "host/ge"}
HOST_CORE = {"host/db", "host/gi", "host/ed"}
HOST = HOST_BASE | HOST_CORE | {"host/companion", "host/io"}
OBJECT = {"object", "modifiers", "editing"}
HOST_FOR_MEMBERS = HOST - {"host/io"}

MAY_KNOW = {
    **{layer: HOST_BASE for layer in HOST_BASE},
    **{layer: HOST_BASE | HOST_CORE for layer in HOST_CORE},
    "host/companion": HOST_BASE | HOST_CORE | {"host/companion"},
    "host/io": HOST - {"host/companion"},
    "records": {"records", "support"} | HOST_FOR_MEMBERS,
    "support": {"support"} | HOST_FOR_MEMBERS,
    **{layer: OBJECT | {"records", "support"} | HOST_FOR_MEMBERS for layer in OBJECT},
}
MAY_KNOW["profiles"] = MAY_KNOW["object"] | {"profiles"}
MAY_KNOW["generators"] = MAY_KNOW["profiles"] | {"generators"}
MAY_KNOW["frame"] = MAY_KNOW["generators"] | {"frame"}
MAY_KNOW["apps"] = MAY_KNOW["frame"] | {"apps", "host/io"}

MEMBERS = set(MAY_KNOW) - HOST - {"apps"}
UMBRELLAS = {f"{layer}/{layer.split('/')[1]}.h" for layer in HOST_FOR_MEMBERS}

STANDARD = set(
    """algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes
    climits clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp csignal cstdarg cstddef
    cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem format
    forward_list fstream functional future initializer_list iomanip ios iosfwd iostream istream iterator latch limits
    list locale map memory memory_resource mutex new numbers numeric optional ostream queue random ranges ratio regex
    scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept stop_token streambuf
    string string_view syncstream system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set
    utility valarray variant vector version""".split()
)
OTHERS = [  # pattern of the header, what it is, layers that may include it
    (re.compile(r"^(cairo|ft2build|freetype|fontconfig|FT_)"), "the drawing library", {"host/io", "host/gi"}),
    (re.compile(r"^fmt/"), "the formatting library", {"host/io", "host/gi", "apps"}),
    (re.compile(r"^nlohmann/"), "the JSON library", {"apps"}),
    (re.compile(r"^emmintrin\.h$"), "the processor's vector instructions", {"host/io"}),
    (re.compile(r"^CLI/"), "the command line library", {"apps"}),
    (re.compile(r"^(unistd|dlfcn|fcntl|strings|dirent|langinfo|iconv|pthread|stdlib|stdio|wchar)\.h$|^(sys|linux)/"),
     "the operating system", {"host/os", "apps"}),
]

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^">]+)[>"]', re.MULTILINE)
COMMENT = re.compile(r"/\*.*?\*/|//[^\n]*", re.DOTALL)


def layer_of(path):
    """The layer of a path below the root (src/host/ge/ge.h: host/ge), or None when it is in none."""
    parts = pathlib.PurePosixPath(path).parts
    if parts[0] == "apps":
        return "apps"
    if parts[0] != "src" or len(parts) < 3:
        return None
    layer = "/".join(parts[1:3]) if parts[1] == "host" else parts[1]
    return layer if layer in MAY_KNOW else None


def without_comments(text):
    return COMMENT.sub(lambda found: "\n" * found.group().count("\n"), text)


def resolve(root, source, name):
    """The file below the root that an include in quotes means, or None."""
    for candidate in (source.parent / name, root / "src" / name, root / "apps/kr" / name, root / "apps" / name):
        if candidate.is_file():
            return candidate.resolve().relative_to(root.resolve()).as_posix()
    return None


def fault_of_file(layer, target):
    known = layer_of(target)
    if known is None:
        return f"includes {target}, which is in no layer"
    if known not in MAY_KNOW[layer]:
        return f"knows {known}, which {layer} may not ({target})"
    name = target.removeprefix("src/")
    if layer in MEMBERS and known in HOST and name not in UMBRELLAS:
        return f"includes {name}; members know the host by its umbrella headers only"
    return None


def fault_of_system_header(layer, name):
    if name in STANDARD:
        return None
    for pattern, what, allowed in OTHERS:
        if pattern.search(name):
            return None if layer in allowed else f"includes <{name}>: {layer} may not know {what}"
    return f"includes <{name}>, which is neither of the C++ standard library nor of a library {layer} may use"


def cycles(graph):
    """Each way on which a header comes back to itself, told once."""
    found, done = [], set()

    def walk(node, way):
        if node in way:
            found.append(way[way.index(node):] + [node])
            return
        if node in done:
            return
        for following in graph.get(node, ()):
            walk(following, way + [node])
        done.add(node)

    for node in sorted(graph):
        walk(node, [])
    return found


def check(root):
    root = pathlib.Path(root)
    faults, graph, count = [], {}, 0
    for source in sorted(path for top in ("src", "apps") for path in (root / top).rglob("*.*")):
        if source.suffix not in (".h", ".cpp"):
            continue
        count += 1
        path = source.relative_to(root).as_posix()
        layer = layer_of(path)
        if layer is None:
            faults.append(f"{path}: is in no layer")
            continue
        text = without_comments(source.read_text(encoding="utf-8"))
        if source.suffix == ".h" and "#pragma once" not in text:
            faults.append(f"{path}: has no #pragma once")
        for found in INCLUDE.finditer(text):
            line = text.count("\n", 0, found.start(2)) + 1
            name = found.group(2)
            if found.group(1) == "<":
                fault = fault_of_system_header(layer, name)
            else:
                target = resolve(root, source, name)
                if target is None:
                    fault = f'includes "{name}", which does not exist'
                else:
                    fault = fault_of_file(layer, target)
                    graph.setdefault(path, []).append(target)
            if fault:
                faults.append(f"{path}:{line}: {fault}")
    faults += ["a header includes itself: " + " > ".join(cycle) for cycle in cycles(graph)]
    return count, faults


def main(root):
    count, faults = check(root)
    for fault in faults:
        print(fault)
    print(f"{count} files read, {len(faults)} faults")
    return 1 if faults or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
