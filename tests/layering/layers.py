"""Which folder may include what. Paths are those of the include lines, from the src folder."""
import os
import re
import subprocess

SEISMIC = r"OvSeismic/.*"
BASE = r"OvBase/.*"
GUI = r"OvGui/.*"
PLUGINS = r"OvPlugins/.*"
READY_PANELS = (
    r"OvTarnpick/gadget/(OvPickFBDefineWidget|OvObjectBoard)\.h|OvTarnpick/utility/OvSensitivityEditor\.h"
)
# The framework as the shell sees it: another build of it has to bring these headers and no more.
PUBLIC_FRAMEWORK = (
    r"OvBase/(OvAbstractGadget|OvAbstractJob|OvBaseUtil|OvDialog|OvDisplayDefine|OvDisplayDefineNode"
    r"|OvProjectDefine|OvProjectDefineNode|OvProjectManager|OvSegyParser|OvTaskManager|OvTaskMonitor"
    r"|OvTranslator|OvUserDefineNode)\.h"
    r"|OvGui/(OvAbstractViewController|OvMultiPlaneViewController|OvPlaneViewController)\.h"
    r"|OvPlugins/(OvGeneralFactory|OvGeneralPlugin|OvModuleFactory|OvModulePlugin)\.h"
    r"|OvSeismic/OvStatus\.h"
)

RULES = {
    "src/OvSeismic": [SEISMIC],
    "src/OvBase": [BASE, SEISMIC],
    "src/OvGui": [GUI, BASE, SEISMIC],
    "src/OvPlugins": [PLUGINS, GUI, BASE, SEISMIC],
    "src/OvTarnpick": [r"OvTarnpick/.*", PUBLIC_FRAMEWORK],
    "src/host": [r"host/.*", r"OvTarnpick/(OvLoginDlg|OvTarnpick)\.h", PLUGINS, GUI, BASE, SEISMIC],
    "src/batch": [r"batch/.*", SEISMIC],
    "modules": [PLUGINS, GUI, BASE, SEISMIC, READY_PANELS],
    "extensions": [PLUGINS, GUI, BASE, SEISMIC, READY_PANELS],
    "demo": [SEISMIC],
}
# Nobody includes from these, so their files may name each other plainly.
LEAVES = ("src/host", "src/batch", "modules", "extensions", "demo")
# Toolkit modules of folders that run without a screen; the others may use what CMake links.
TOOLKIT = {folder: ("QtCore", "QtSql") for folder in ("src/OvSeismic", "src/batch", "demo")}

INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]', re.MULTILINE)
GENERATED = re.compile(r"(ui_.*\.h|.*\.moc|moc_.*\.cpp|.*Export\.h)$")


def sources(root, folder):
    for place, _, names in os.walk(os.path.join(root, folder)):
        for name in sorted(names):
            if name.endswith((".cpp", ".h")):
                yield os.path.join(place, name)


def toolkit_headers():
    qmake = os.environ.get("QMAKE", "/usr/lib/qt5/bin/qmake")
    query = [qmake, "-query", "QT_INSTALL_HEADERS"]
    return subprocess.run(query, check=True, capture_output=True, text=True).stdout.strip()


def private_of_another(folder, name):
    private = name.endswith("_p.h") or "/private/" in name
    return private and "/" in name and "src/" + name.split("/")[0] != folder


def complaint(root, folder, path, bracket, name, headers):
    """Why the include line is not allowed; None when it is."""
    if bracket == "<":
        modules = TOOLKIT.get(folder)
        if not modules or not re.match(r"Q[A-Zt]", name):
            return None
        places = [os.path.join(headers, module, name.split("/")[-1]) for module in modules]
        known = name.split("/")[0] in modules if "/" in name else any(map(os.path.exists, places))
        return None if known else "is not of " + " or ".join(modules)
    if GENERATED.match(name) and "/" not in name:
        return None
    if private_of_another(folder, name):
        return "is private to another library"
    beside = os.path.exists(os.path.join(os.path.dirname(path), name))
    if "/" not in name or beside:
        return None if beside and folder in LEAVES else "is not written from the src folder"
    allowed = any(re.fullmatch(rule, name) for rule in RULES[folder])
    return None if allowed else "is above or beside this layer"


def violations(root):
    headers = toolkit_headers()
    found = []
    for folder in RULES:
        for path in sources(root, folder):
            with open(path, encoding="utf-8") as file:
                text = file.read()
            for bracket, name in INCLUDE.findall(text):
                why = complaint(root, folder, path, bracket, name, headers)
                if why:
                    found.append(f"{os.path.relpath(path, root)}: {name} {why}")
    return found
