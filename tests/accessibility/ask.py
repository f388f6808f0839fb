"""ask.py PROGRAM [SECTION...]

Asks the demo what a screen reader asks, through AT-SPI: finds rows by their labels, reads their values, works them by
their actions and hears the focus move. Run it on a session bus and an X server of its own.
"""

import os
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
import pyatspi
from gi.repository import GLib


class Demo:
    """The running program, and what it has been heard to say."""

    def __init__(self, program):
        self.heard = []
        pyatspi.Registry.registerEventListener(self._hear, "object:state-changed:focused", "object:state-changed:checked")
        environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_ACCESSIBILITY="1")
        self.process = subprocess.Popen([program], env=environment)
        self.application = self.wait("the program", lambda: self._application(os.path.basename(program)))
        self.wait("its window", lambda: any(has(window, pyatspi.STATE_ACTIVE) for window in self.application))

    def _application(self, name):
        return next((each for each in pyatspi.Registry.getDesktop(0) if each and each.name == name), None)

    def _hear(self, event):
        what = event.type.minor
        if event.source and (what == "checked" or event.detail1):
            self.heard.append((what, event.source.name))

    def wait(self, what, condition):
        """What the condition gives once that is true; events are heard meanwhile."""
        deadline = time.monotonic() + 30
        while True:
            while GLib.MainContext.default().iteration(False):
                pass
            try:
                found = condition()
            except GLib.Error:  # what was there has gone
                found = None
            if found:
                return found
            if time.monotonic() > deadline:
                raise AssertionError(f"waited in vain for {what}; heard {self.heard}")
            time.sleep(0.02)

    def hear(self, what, name):
        """Waits until something has been heard, and forgets all up to it."""
        self.wait(f"{what} {name}", lambda: (what, name) in self.heard)
        del self.heard[: self.heard.index((what, name)) + 1]

    def find(self, role, name):
        def matches(node):
            return node.getRoleName() == role and node.name == name and has(node, pyatspi.STATE_SHOWING)

        return self.wait(f"{role} {name}", lambda: pyatspi.findDescendant(self.application, matches))

    def key(self, name):
        subprocess.run(["xdotool", "key", name], check=True)

    def close(self):
        self.process.terminate()
        self.process.wait()


def text_of(node):
    try:
        return node.queryText().getText(0, -1)
    except NotImplementedError:
        return None


def has(node, state):
    return node.getState().contains(state)


def act(node):
    """Does what a press does."""
    assert node.queryAction().doAction(0)


def check(rows, expected):
    for name, *wanted in expected:
        row = rows[name]
        told = [row.getRoleName(), text_of(row), row.description]
        assert told == wanted, (name, told)


def ask_rows(demo):
    """The page of rows that are widgets: label, role, value, groups, and how it is worked."""
    act(demo.find("page tab", "Rows"))
    demo.key("F6")  # selects a slider
    form = demo.wait("the form", lambda: demo.find("text", "tickInterval").parent)
    assert form.getRoleName() == "form"
    rows = {child.name: child for child in form}
    expected = [
        ("class", "label", "QSlider", ""),
        ("hide", "push button", "hide", "Commands"),
        ("tickPosition", "combo box", "NoTicks", "QSlider"),
        ("value", "text", "40", "QAbstractSlider"),
        ("tracking", "check box", None, "QAbstractSlider"),
        ("geometry 3", "text", "280", "QWidget"),
        ("styleSheet", "text", "", "QWidget"),
        ("ImhDate", "check box", None, "QWidget, inputMethodHints"),
    ]
    check(rows, expected)
    order = [child.name for child in form]
    assert order.index("class") < order.index("hide") < order.index("value") < order.index("ImhDate")
    assert has(rows["tracking"], pyatspi.STATE_CHECKED) and not has(rows["ImhDate"], pyatspi.STATE_CHECKED)
    assert has(rows["styleSheet"], pyatspi.STATE_MULTI_LINE)
    assert not has(rows["width"], pyatspi.STATE_EDITABLE) and has(rows["minimum"], pyatspi.STATE_EDITABLE)
    assert not has(rows["width"], pyatspi.STATE_ENABLED) and rows["width"].queryAction().nActions == 0
    assert not has(rows["ImhDate"], pyatspi.STATE_SHOWING)
    assert rows["ImhDate"].queryComponent().getExtents(0).y > form.queryComponent().getExtents(0).height

    demo.heard.clear()
    act(rows["tracking"])
    demo.hear("checked", "tracking")
    assert not has(rows["tracking"], pyatspi.STATE_CHECKED)
    act(rows["value"])  # opens an editor that is named after the row
    demo.hear("focused", "value")
    demo.wait("an editor", lambda: focused(demo, "text", "value")).queryEditableText().setTextContents("75")
    demo.key("Return")
    demo.wait("75", lambda: text_of(rows["value"]) == "75" and text_of(rows["sliderPosition"]) == "75")
    act(rows["tickPosition"])
    demo.hear("focused", "NoTicks")
    demo.key("Down")
    demo.hear("focused", "TicksAbove")
    demo.key("Return")
    demo.wait("the choice", lambda: text_of(rows["tickPosition"]) == "TicksAbove")
    act(rows["hide"])
    demo.wait("a hidden object", lambda: not has(rows["visible"], pyatspi.STATE_CHECKED))
    act(rows["toolTip"])
    demo.hear("focused", "toolTip")
    rows["toolTip"].queryEditableText().setTextContents("a tip")
    demo.key("Tab")
    for name in ("toolTipDuration", "statusTip", "whatsThis"):
        demo.hear("focused", name)
        demo.key("Tab")
    assert text_of(rows["toolTip"]) == "a tip"
    demo.key("F8")  # hides the content
    demo.wait("hidden content", lambda: not has(rows["minimum"], pyatspi.STATE_VISIBLE))


def ask_page(demo):
    """The property page, whose rows are no widgets."""
    act(demo.find("page tab", "Properties"))
    demo.key("F6")  # selects a slider
    form = demo.wait("the form", lambda: demo.find("text", "tickInterval").parent)
    rows = {child.name: child for child in form}
    expected = [
        ("QAbstractSlider", "panel", None, ""),
        ("tickPosition", "combo box", "NoTicks", ""),
        ("value", "text", "40", "From minimum to maximum. Drag the label sideways to change it."),
        ("tracking", "check box", None, ""),
        ("geometry", "text", "20, 20, 280, 15", "The place on the stage, and the size."),
        ("cursor", "label", "ArrowCursor", ""),
    ]
    check(rows, expected)
    assert has(rows["tracking"], pyatspi.STATE_CHECKED) and not has(rows["invertedControls"], pyatspi.STATE_CHECKED)
    assert has(rows["minimum"], pyatspi.STATE_EDITABLE) and has(rows["width"], pyatspi.STATE_READ_ONLY)
    assert not has(rows["toolTip"], pyatspi.STATE_SHOWING)
    above, below = (rows[name].queryComponent().getExtents(0) for name in ("minimum", "maximum"))
    assert below.y == above.y + above.height and below.x == above.x

    demo.heard.clear()
    act(rows["tracking"])
    demo.hear("focused", "tracking")
    demo.wait("no check mark", lambda: not has(rows["tracking"], pyatspi.STATE_CHECKED))
    demo.key("Down")
    demo.hear("focused", "orientation")
    demo.key("Down")
    demo.hear("focused", "invertedAppearance")
    demo.key("space")
    demo.hear("checked", "invertedAppearance")
    act(rows["value"])
    demo.hear("focused", "value")
    demo.wait("an editor", lambda: focused(demo, "spin button", "value"))
    demo.key("7")
    demo.key("5")
    demo.key("Return")
    demo.wait("75", lambda: text_of(rows["value"]) == "75" and text_of(rows["sliderPosition"]) == "75")
    count = form.childCount
    act(rows["QAbstractSlider"])
    demo.wait("a folded group", lambda: has(rows["QAbstractSlider"], pyatspi.STATE_COLLAPSED))
    demo.wait("fewer rows", lambda: form.childCount < count and "value" not in {child.name for child in form})
    demo.key("F6")  # selects another object
    demo.wait("other rows", lambda: "suffix" in {child.name for child in form})


def focused(demo, role, name):
    def matches(node):
        return node.getRoleName() == role and node.name == name and has(node, pyatspi.STATE_FOCUSED)

    return pyatspi.findDescendant(demo.application, matches)


SECTIONS = {"rows": ask_rows, "page": ask_page}

if __name__ == "__main__":
    for section in sys.argv[2:] or SECTIONS:
        asked = Demo(sys.argv[1])
        try:
            SECTIONS[section](asked)
        finally:
            asked.close()
        print(f"{section}: passed")
