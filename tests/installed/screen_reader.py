"""What a screen reader finds in the desktop program, and gives its commands by.

  screen_reader.py check        prints a line "ok NAME" or "not ok NAME" for each fact that was looked at
  screen_reader.py exit         chooses Exit from the menu

The program runs with examples/reef-day.xml, and pyatspi finds it on the bus. Steps of the chart are selected with the mouse:
xdotool moves it, to places that the bus tells.
"""

import subprocess
import sys
import time

import pyatspi

PATIENCE = 90

# What stands in a widget of its own: the reader speaks of the widget.
WHOLES = {"list", "text", "slider", "scroll bar"}
# What holds other things and is never spoken of.
CONTAINERS = {"filler", "panel", "image", "popup menu", "menu bar", "separator"}
# They have their words while nobody sees them.
MENU_PARTS = {"menu item", "popup menu", "separator"}

MENUS = ["File", "Edit", "Device", "Channel", "Mode", "Language", "Help"]
BUTTONS = ["Add new mode", "Delete mode", "Play or pause demo", "Stop demo"]
DIALOGS = [
    ("menu item", "About ..."),
    ("menu item", "Known issues ..."),
    ("menu item", "Set time"),
    ("menu item", "Custom..."),
    ("menu item", "Setup TC421 WiFi"),
    ("push button", "Add new mode"),
]
# These act on the selected channel.
CHANNEL_DIALOGS = [("menu item", "Manual steps add..."), ("menu item", "Rename channel")]
LABELS = ["Ready (60s)", "Channel power", "Devices", "Zoom"]


def wait_for(fact):
    """The first answer of `fact` that is true, or its last one."""
    end = time.monotonic() + PATIENCE
    while True:
        try:
            answer = fact()
        except Exception:  # the tree changes while it is read
            answer = None
        if answer or time.monotonic() > end:
            return answer
        time.sleep(0.1)


def check(name, fact):
    answer = wait_for(fact)
    print(("ok " if answer else "not ok ") + name, flush=True)
    return answer


def program():
    for application in pyatspi.Registry.getDesktop(0):
        if application is not None and application.name == "Lumarine" and application.childCount > 0:
            return application
    return None


def below(node):
    """The node and all that it holds."""
    yield node
    for child in node:
        if child is not None:
            yield from below(child)


def find(role, name):
    for node in below(program()):
        if node.getRoleName() == role and node.name == name:
            return node
    return None


def names(role):
    return [node.name for node in below(program()) if node.getRoleName() == role]


def rows(name):
    return [row.name for row in find("list", name)]


def items(menu):
    popup = find("menu item", menu)[0]
    return [item.name for item in popup if item.getRoleName() == "menu item"]


def act(node, wanted):
    action = node.queryAction()
    for index in range(action.nActions):
        if action.getName(index) == wanted:
            return action.doAction(index)
    raise LookupError(f"{node.name} knows no {wanted}")


def press(role, name):
    act(wait_for(lambda: find(role, name)), "Press")


def has_state(node, state):
    return node.getState().contains(state)


def is_shown(node):
    return has_state(node, pyatspi.STATE_SHOWING)


def choose(menu, item):
    """As a person does who opens the menu: only then it is known which items are greyed."""
    act(find("menu item", menu), "ShowMenu")
    wait_for(lambda: is_shown(find("menu item", menu)[0]))
    press("menu item", item)
    if is_shown(find("menu item", menu)[0]):
        act(find("menu item", menu), "ShowMenu")
    wait_for(lambda: not is_shown(find("menu item", menu)[0]))


def log():
    text = find("text", "Log").queryText()
    return text.getText(0, text.characterCount)


def told():
    return find("chart", "Chart").description


def described(text):
    return lambda: told() == text


def offenders(node, found):
    """Adds what a reader would have no word for."""
    role = node.getRoleName()
    if role not in MENU_PARTS and not has_state(node, pyatspi.STATE_VISIBLE):
        return
    silent = role in CONTAINERS and not has_state(node, pyatspi.STATE_FOCUSABLE)
    if not silent and (node.name == "" or role in ("unknown", "invalid", "filler")):
        found.append(f"{role} {node.name!r} in {node.parent.getRoleName()} {node.parent.name!r}")
    for child in node:
        if child is None:
            continue
        if role not in WHOLES or child.getRoleName() == "list item":
            offenders(child, found)


def check_names():
    check("the frame has the title", lambda: find("frame", program()[0].name).name.startswith("Lumarine - /"))
    bar = check("there is a menu bar", lambda: [n for n in below(program()) if n.getRoleName() == "menu bar"])
    check("it has the menus", lambda: [menu.name for menu in bar[0]] == MENUS)
    check("a menu has its items", lambda: items("Edit") == ["Undo", "Redo", "Select all steps", "Careful mouse"])
    check("a submenu has its own", lambda: items("Add endpoint steps") == ["At the start (00:00)", "At the end (23:59)"])
    check("no item has a mark for a key", lambda: not [n for n in names("menu item") if "&" in n])
    check("the language in use is checked", lambda: has_state(find("menu item", "English"), pyatspi.STATE_CHECKED))
    check("what cannot be done is greyed", lambda: not has_state(find("menu item", "Delete step"), pyatspi.STATE_ENABLED))
    check("the modes are rows", lambda: rows("Modes") == ["Reef day", "Cloudy day"])
    check("no device is there", lambda: rows("Devices") == [])
    check("the buttons have names", lambda: set(BUTTONS) <= set(names("push button")))
    check("the labels have their words", lambda: set(LABELS) <= set(names("label")))
    check("the sliders have names", lambda: names("slider") == ["Channel power", "Zoom"])
    check("so has the scroll bar", lambda: "Shown part of the day" in names("scroll bar"))
    check("the log can be read", lambda: "Loaded program contains 2 modes" in log())


def check_all_named(place, window):
    found = []
    offenders(window, found)
    for offender in found:
        print("# " + offender)
    check(f"everything in {place} has a name and a role", lambda: not found)


def dialog():
    return next((window for window in program() if window.getRoleName() in ("dialog", "alert")), None)


def check_dialogs(dialogs):
    for role, command in dialogs:
        press(role, command)
        if check(f"{command} opens a dialog", dialog):
            check_all_named(dialog().name, dialog())
        wait_for(lambda: has_state(dialog(), pyatspi.STATE_ACTIVE))
        keys("Escape")
        check("and Escape leaves it", lambda: dialog() is None)


def check_demo():
    press("menu item", "Add emulator")
    check("the emulator is added", lambda: rows("Devices") == ["TC420_Emulator"])
    press("push button", "Play or pause demo")
    check("a demo plays", lambda: [name for name in names("label") if name.startswith("Playing")])
    check("its time goes on", lambda: "00:00:00" not in names("label"))
    press("push button", "Stop demo")
    check("it is stopped", lambda: "Ready (60s)" in names("label"))
    check("and the log says so", lambda: "Demo finished" in log())


def mouse_at(x, y):
    subprocess.run(["xdotool", "mousemove", str(x), str(y)], check=True)


def click_at(x, y):
    mouse_at(x, y)
    subprocess.run(["xdotool", "click", "1"], check=True)


def keys(*pressed):
    subprocess.run(["xdotool", "key", *pressed], check=True)


def check_chart():
    check("the chart has a role and tells that nothing is selected", described("No channel selected"))
    place = find("chart", "Chart").queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    left, width = place.x + 10, place.width - 20
    top = place.y + 10
    noon = left + width // 2
    click_at(noon, top + 20)
    check("a click on a lane selects it", described("Royal blue, 7 steps, none selected"))
    # The third of the seven, at 11:00 and 80 percent of a lane that takes three sevenths of the room less its gaps.
    height = place.height - 20
    lane = height - 4 * (height // 7 + 14)

    def step_is_selected():
        click_at(left + width * 11 // 24, top + lane // 5)
        return described("Royal blue, step 3 of 7: 11:00, 80 percent, fade")()

    check("a click on a step selects it", step_is_selected)
    keys("Right")
    check("it is told where a key moves it", described("Royal blue, step 3 of 7: 11:01, 80 percent, fade"))
    keys("Down", "Down", "Left")
    check("and how strong it is made", described("Royal blue, step 3 of 7: 11:00, 78 percent, fade"))
    choose("Channel", "Toggle step jump type")
    check("and what a menu makes of it", described("Royal blue, step 3 of 7: 11:00, 78 percent, jump"))
    choose("Channel", "Toggle step jump type")
    check("and of it again", described("Royal blue, step 3 of 7: 11:00, 78 percent, fade"))
    check_dialogs(CHANNEL_DIALOGS)
    choose("Channel", "Delete step")
    check("and that it is gone", lambda: "of 6" in told() or "6 steps" in told())


def check_language():
    press("menu item", "Deutsch")
    check("another language names the menus", lambda: find("menu item", "Datei"))
    check("and the controls", lambda: find("list", "Devices") is None)
    press("menu item", "Englisch (English)")
    check("and English is back", lambda: find("list", "Devices"))


def main():
    if not wait_for(program):
        print("not ok the program is on the bus")
        return
    if sys.argv[1] == "check":
        check_names()
        check_all_named("the window", program()[0])
        check_dialogs(DIALOGS)
        check_demo()
        check_chart()
        check_language()
    else:
        press("menu item", "Exit")


main()
