# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""header_examples.py OUTPUT HEADER... writes the examples of the headers, functions between \\code and
\\endcode, into one source, each in a namespace of its own. Each header has to have one."""

import pathlib
import re
import sys

INCLUDES = """\
#include <rvopen/Camera.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/SnapShot.h>
#include <rvopen/host/Find.h>
#include <rvopen/host/OpenArchive.h>
{headers}
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QToolTip>
#include <QTreeView>
#include <QUndoStack>

#include <functional>
#include <memory>
"""

# These are not used by themselves.
WITHOUT = {"NodeModel.h", "ParamFacts.h", "PresetFilter.h"}

output, headers = pathlib.Path(sys.argv[1]), [pathlib.Path(name) for name in sys.argv[2:]]
text = INCLUDES.format(headers="".join(f"#include <rvopen/widgets/{header.name}>\n" for header in headers))
for header in headers:
    examples = re.findall(r"/// \\code\n(.*?)/// \\endcode", header.read_text(encoding="utf-8"), re.DOTALL)
    if bool(examples) == (header.name in WITHOUT):
        sys.exit(f"{header.name}: {len(examples)} examples")
    for example in examples:
        code = re.sub(r"^/// ?", "", example, flags=re.MULTILINE)
        if len(code.splitlines()) > 14:
            sys.exit(f"{header.name}: an example is ten lines or so")
        text += f"\nnamespace of_{header.stem} {{\n{code}}}\n"
if not output.exists() or output.read_text(encoding="utf-8") != text:
    output.write_text(text, encoding="utf-8")
