#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""The pictures of the documents.

docs/pictures.py          makes layers.dot from the includes of the sources, and every .svg from its
                          .dot; needs Graphviz
docs/pictures.py --draw FOLDER  makes the .svg there, from the .dot as they are
docs/pictures.py --check  says whether that was done after the last change, and whether the sources
                          keep to their layers, and those above the model to what of it is public;
                          needs nothing
"""

import hashlib
import pathlib
import re
import subprocess
import sys
import textwrap

DOCS = pathlib.Path(__file__).resolve().parent
LIBRARY = DOCS.parent / "rvopen"
# Its headers are included as <rvopen/toolkit/...>.
TOOLKIT = DOCS.parent / "toolkit"
WIDGETS = DOCS.parent / "widgets"
BROWSER = DOCS.parent / "browser"
COMMAND = DOCS.parent / "command"

# From the bottom up: a file includes what is of its own layer or of one before it.
LAYERS = {
    "Text and files": """
        xml/BytePlaces xml/DomBuilder xml/DomMemory xml/DomParser xml/DomWriter xml/MarkupText
        xml/NamespaceScope xml/TextDecoding xml/WrittenTags xml/XmlCharacters xml/XmlReferences
        xml/XmlScanner xml/XmlScannerProlog xml/XmlSpace xml/XmlTokens
        files/AtomicWrite files/Containment files/DocumentFiles files/JudgedDocument files/PlatformRename
        files/PlatformRenameQt files/PlatformRenameUnix model/EmbeddedImage model/Names model/ValueText ORVBase QtCompat
        RVOpenExport RVOpenLimits RVOpenPaths RVOpenReader RVOpenScanner RVOpenStatus RVOpenVersion
        RVOpenVocabulary RVOpenWriter""",
    "Nodes": """
        RVOpenNode RVOpenNodeAttributes RVOpenNodeLinks RVOpenObserver RVOpenSchema RVOpenView
        ParamHelper model/Binding model/Changes model/FoundNodes model/HeldObject model/LookUp
        model/NodeAccess model/NodeAside model/NodeCast model/Population model/References
        model/TakingBack model/UnitsScale host/Ref""",
    "Parameters": "Param model/ParamAccess model/Rows",
    "Archive registry": "DirectoryHandler",
    "Materials": """
        Material MaterialRepository Colour Finish Transparency Bump ShaderColour ShaderDiffuse
        ShaderMap ShaderPlainColour TemporaryItems model/Components model/ComponentEquality""",
    "Snapshots": """
        SnapShot SnapShots SnapShotSettings Scenery Background Foreground Camera Lens AspectRatio
        AspectRatioOrient Scheme NaturalLightStudio ArtificialLightStudio AlbumInfo Directory
        RenderTarget RenderTargets model/SnapShotComponents""",
    "Pictures and textures": "XMLUtils model/TextureReferences",
    "Manager": """
        RVOpenManager manager/ImportedDocument manager/PresetArchives manager/Retired
        manager/SnapShotDocument manager/SnapShotNames""",
    "Hosts": """
        host/CameraValues host/Children host/Documents host/Find host/OpenArchive host/Owned
        host/Result host/Values""",
    "Toolkit: schema": """
        toolkit/schema/AttributeTable toolkit/schema/ElementInfo toolkit/schema/ParamInfo
        toolkit/schema/ParamRows toolkit/schema/ParamTable toolkit/schema/ValueCheck
        toolkit/schema/ValueText toolkit/schema/Vocabulary toolkit/ToolkitExport""",
    "Toolkit: documents": """
        toolkit/documents/Document toolkit/documents/DocumentKinds toolkit/documents/Failure toolkit/documents/FileLock
        toolkit/documents/FileTransaction toolkit/documents/FileWriting toolkit/documents/Folders
        toolkit/documents/ForeignFormat toolkit/documents/Interruption toolkit/documents/Load
        toolkit/documents/NewDocuments toolkit/documents/Processors toolkit/documents/SafeFiles
        toolkit/documents/Stopping toolkit/documents/Utf8""",
    "Toolkit: edit": """
        toolkit/edit/Arriving toolkit/edit/Carrying toolkit/edit/Condition toolkit/edit/Content toolkit/edit/Folding
        toolkit/edit/Labels toolkit/edit/Likeness toolkit/edit/Links toolkit/edit/NodePath toolkit/edit/ParamValues toolkit/edit/PathSegment
        toolkit/edit/Placement toolkit/edit/Selection toolkit/edit/Sorting toolkit/edit/Things
        toolkit/edit/TypedText toolkit/edit/Uses""",
    "Toolkit: images": """
        toolkit/images/DocumentTextures toolkit/images/EmbeddedPreview toolkit/images/FileIndex
        toolkit/images/FollowedImages
        toolkit/images/HostPicture toolkit/images/ImageFiles toolkit/images/PictureApplication
        toolkit/images/PictureLocations toolkit/images/PictureMoves
        toolkit/images/ReferencedTextures toolkit/images/TextureCollection
        toolkit/images/TextureReferences""",
    "Toolkit: drawing": """
        toolkit/drawing/Backdrop toolkit/drawing/ColourDistance toolkit/drawing/Diagrams
        toolkit/drawing/Drawing toolkit/drawing/Optics toolkit/drawing/Photometry
        toolkit/drawing/Picture toolkit/drawing/PicturePlan toolkit/drawing/Raster
        toolkit/drawing/Reading toolkit/drawing/Scene
        toolkit/drawing/SceneSurfaces toolkit/drawing/Sky toolkit/drawing/SnapShotPicture
        toolkit/drawing/Studio toolkit/drawing/Subjects toolkit/drawing/Surface toolkit/drawing/Vec
        toolkit/drawing/View""",
    "Toolkit: sheets": "toolkit/sheets/ContactSheet toolkit/sheets/PictureSheet toolkit/sheets/SheetPage",
    "Toolkit: catalogue": """
        toolkit/catalogue/Block toolkit/catalogue/BlockStore toolkit/catalogue/Catalogue
        toolkit/catalogue/FileState toolkit/catalogue/IndexFile toolkit/catalogue/PathScan
        toolkit/catalogue/PresetList
        toolkit/catalogue/RowFilter toolkit/catalogue/RowScan toolkit/catalogue/RowSearch
        toolkit/catalogue/SmallDocument""",
    "Toolkit: check": """
        toolkit/check/Inspecting toolkit/check/Inspection toolkit/check/Mending
        toolkit/check/Parameters toolkit/check/Places toolkit/check/References toolkit/check/Rules
        toolkit/check/RuleTable""",
    "Toolkit: compare": "toolkit/compare/Comparer toolkit/compare/Members toolkit/compare/SameElements",
    "Toolkit: exchange": "toolkit/exchange/Exchange toolkit/exchange/ImportedPictures toolkit/exchange/Importer toolkit/exchange/Merger",
    "Command": """
        command/Arguments command/Check command/Command command/CommandLine command/Diff
        command/Documentation command/Editing command/Find command/Format command/Get command/Import
        command/Info command/Input command/Inputs command/Interrupts command/List command/Merge command/New
        command/Outline command/Output command/OutputOptions command/ParamTables command/Params
        command/Preview command/Program command/Remove command/Rename command/Render command/SelectionOptions
        command/Session command/Set command/Sheet command/Sort command/Survey
        command/Target command/Textures command/Thumbnail command/Transfer command/Tree command/main""",
    "Widgets": """
        widgets/ArchiveModel widgets/FollowedPresets widgets/LoneElements widgets/NodeMime widgets/NodeModel
        widgets/NodeRows widgets/Nodes widgets/PaletteModel widgets/SnapShotModel
        widgets/NumberEditors widgets/ParamDelegate widgets/ParamEditor widgets/ParamFacts
        widgets/ParamModel widgets/PictureWorkers widgets/PresetFilter widgets/PresetModel widgets/PresetRows
        widgets/TextEditors widgets/Thumbnails widgets/UndoRecorder widgets/WidgetsExport""",
    "Browser": """
        browser/Appearance browser/Applying browser/Background browser/Becoming browser/CompareWindow browser/Details
        browser/EditedFile browser/Edits browser/Exports browser/Facets browser/FileTexts browser/FileWorks browser/Findings browser/FollowedPlaces browser/Grid
        browser/GridModel
        browser/Journal browser/Labels browser/LongWork browser/MainWindow browser/MainWindowActions browser/MainWindowFiles browser/MainWindowWorks
        browser/Memory browser/MessageLine browser/QtCompat browser/Sidebar browser/SnapShotStrip browser/Start
        browser/Waiting browser/Workspace browser/main""",
}

# Where something has to know what is built on it. Only sources may, never headers.
UPWARDS = {
    ("RVOpenSchema", "Snapshots"): "the factory makes objects of every class",
    ("RVOpenSchema", "Materials"): "the factory makes objects of every class",
    ("RVOpenSchema", "Parameters"): "the factory makes objects of every class",
    ("ParamHelper", "Parameters"): "the list makes the parameters that it holds",
    ("RVOpenNode", "Archive registry"): "a node that stands for an archive opens it",
    ("RVOpenNodeAttributes", "Archive registry"): "the name of an archive starts with its folder",
    ("SnapShot", "Pictures and textures"): "the files of a snapshot have safe names",
}


def module_of(path):
    """What a file is called in LAYERS; of generated headers their name."""
    for root, prefix in ((LIBRARY, ""), (TOOLKIT, "toolkit/"), (WIDGETS, "widgets/"),
                         (BROWSER, "browser/"), (COMMAND, "command/")):
        if root in path.parents:
            return prefix + path.relative_to(root).as_posix().split(".")[0]
    return path.name.split(".")[0]


def sources(*roots):
    return sorted(path for root in roots for pattern in ("*.h", "*.cpp", "*.h.in")
                  for path in root.rglob(pattern))


def includes(*roots):
    """(file, module, included module) for each include of the repository's own."""
    for path in sources(*(roots or (LIBRARY, TOOLKIT, WIDGETS, BROWSER, COMMAND))):
        module = module_of(path)
        text = path.read_text(encoding="utf-8")
        for included in re.findall(r"^#include [<\"]rvopen/([\w/]+)\.h[>\"]", text, re.MULTILINE):
            yield path, module, included
        if LIBRARY not in path.parents:
            for included in re.findall(r"^#include \"((?:toolkit|command)/[\w/]+)\.h\"", text, re.MULTILINE):
                yield path, module, included
            for included in re.findall(r"^#include \"(\w+)\.h\"", text, re.MULTILINE):
                yield path, module, module_of(path.parent / f"{included}.h")
        yield path, module, module


def public_modules():
    """What a host includes."""
    exports = re.compile("RVOPEN_(TOOLKIT_|WIDGETS_)?EXPORT")
    return {module_of(path) for path in [*LIBRARY.glob("*.h"), *TOOLKIT.rglob("*.h"), *WIDGETS.glob("*.h")]
            if exports.search(path.read_text(encoding="utf-8"))} | {
                module_of(path) for path in LIBRARY.glob("host/*.h")} | {
                "RVOpenStatus", "RVOpenVersion", "toolkit/documents/Folders"}


def layers_of():
    return {module: layer for layer, modules in LAYERS.items() for module in modules.split()}


def violations():
    layer_of, order = layers_of(), list(LAYERS)
    used = set()
    for path, module, included in includes():
        file = path.relative_to(DOCS.parent).as_posix()
        if module not in layer_of or included not in layer_of:
            yield f"{file}: {module if module not in layer_of else included} has no layer"
            continue
        upper = layer_of[included]
        if order.index(upper) <= order.index(layer_of[module]):
            continue
        if (module, upper) in UPWARDS and file.endswith(".cpp"):
            used.add((module, upper))
        else:
            yield f'{file} includes {included}.h, which is above it, in "{upper}"'
    for module, upper in sorted(set(UPWARDS) - used):
        yield f'rvopen/{module}.cpp need not be allowed to know "{upper}": it does not'
    public = public_modules()
    for path, module, included in includes(TOOLKIT, WIDGETS, BROWSER, COMMAND):
        file = path.relative_to(DOCS.parent).as_posix()
        own = next((room for room in ("widgets/", "browser/") if module.startswith(room)),
                   ("toolkit/", "command/"))
        if included not in public and not included.startswith(own):
            yield f"{file} includes {included}.h, which is not public"
        # What is installed needs nothing that is not.
        is_installed = path.suffix == ".h" and module in public
        if is_installed and included not in public | {"toolkit/ToolkitExport", "widgets/WidgetsExport"}:
            yield f"{file} is installed and includes {included}.h, which is not"


def layers_dot():
    layer_of, order = layers_of(), list(LAYERS)
    present = {module for _, module, _ in includes()}
    public = public_modules()
    lines = ["// SPDX-FileCopyrightText: 2026 The rvopen authors",
             "// SPDX-License-Identifier: MIT",
             "// Made by docs/pictures.py from the includes of the libraries.",
             "digraph layers {",
             "    rankdir=BT; ranksep=0.45; nodesep=0.3;",
             '    node [shape=plain, fontname="Helvetica,sans-serif", fontsize=11];',
             '    edge [color="#607080", arrowsize=0.7, fontname="Helvetica,sans-serif", fontsize=9];']
    for number, layer in enumerate(order):
        modules = [module for module in LAYERS[layer].split() if module in present]
        text = [("Public classes and functions", [m for m in modules if m in public], "#203040"),
                ("Inside", [m for m in modules if m not in public], "#708090")]
        rows = "".join(
            f'<tr><td align="left" balign="left"><font color="{colour}">'
            + "<br/>".join(textwrap.wrap(", ".join(names), 76)) + "</font></td></tr>"
            for _, names, colour in text if names)
        lines.append(f'    l{number} [label=<<table border="1" cellborder="0" cellpadding="4" '
                     f'color="#607080" bgcolor="#f4f7fa" style="rounded"><tr><td><b>{layer}</b>'
                     f"</td></tr>{rows}</table>>];")
    down, up = set(), {}
    for _, module, included in includes():
        lower, upper = order.index(layer_of[included]), order.index(layer_of[module])
        if lower < upper:
            down.add((upper, lower))
        elif lower > upper:
            up.setdefault((upper, lower), set()).add(module)
    # What follows from others is not drawn.
    reach = set(down)
    for middle in range(len(order)):
        reach |= {(a, c) for a, b in reach for d, c in reach if b == d == middle}
    direct = {(a, c) for a, c in down
              if not any((a, b) in reach and (b, c) in reach for b in range(len(order)))}
    lines += [f"    l{lower} -> l{upper} [dir=back];" for upper, lower in sorted(direct)]
    lines += [f'    l{lower} -> l{upper} [style=dashed, color="#b05020", constraint=false, '
              f'fontcolor="#b05020", label="{", ".join(f"{n}.cpp" for n in sorted(names))}"];'
              for (lower, upper), names in sorted(up.items())]
    return "\n".join([*lines, "}", ""])


def mark(dot):
    digest = hashlib.sha256(dot.read_bytes()).hexdigest()
    return f"<!-- Made by docs/pictures.py from {dot.name}, {digest[:16]} -->\n"


def check():
    for violation in violations():
        yield violation
    if (DOCS / "layers.dot").read_text(encoding="utf-8") != layers_dot():
        yield "docs/layers.dot is not what the includes say: run docs/pictures.py"
    for dot in sorted(DOCS.glob("*.dot")):
        svg = dot.with_suffix(".svg")
        if not svg.exists() or mark(dot) not in svg.read_text(encoding="utf-8"):
            yield f"docs/{svg.name} is not made from {dot.name}: run docs/pictures.py"


def draw(folder):
    for dot in sorted(DOCS.glob("*.dot")):
        svg = subprocess.run(["dot", "-Tsvg", str(dot)], check=True, stdout=subprocess.PIPE,
                             text=True, encoding="utf-8").stdout
        start = svg.index("<svg")
        notice = ("<!-- SPDX-FileCopyrightText: 2026 The rvopen authors -->\n"
                  "<!-- SPDX-License-Identifier: MIT -->\n")
        (folder / dot.with_suffix(".svg").name).write_text(notice + mark(dot) + svg[start:],
                                                           encoding="utf-8")


if __name__ == "__main__":
    if sys.argv[1:] == ["--check"]:
        complaints = list(check())
        if complaints:
            sys.exit("\n".join(complaints))
    elif sys.argv[1:2] == ["--draw"]:
        draw(pathlib.Path(sys.argv[2]))
    elif not sys.argv[1:]:
        (DOCS / "layers.dot").write_text(layers_dot(), encoding="utf-8")
        draw(DOCS)
    else:
        sys.exit(__doc__)
