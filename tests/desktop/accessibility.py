"""Finds the controls of the running program by role and name, as a screen reader does, and works with them.

Usage: accessibility.py PROGRAM USER PASSWORD
Starts the program on the sample department of the folders in the environment, which the caller keeps scratch. Logs in,
opens a location, prints a label, begins to sign an item out, reads a chain of custody, and starts the program a second
time with a record's address. Then begins to categorize the locations of a department without categories. Prints a line
for each thing found; exits with 1 at the first that does not appear.
"""

import os
import subprocess
import sys

from screen_reader import PATIENCE, Heard, Spoken, choose_in_menu, click, do, fill, find, press, rows_of


def walk(user, password):
    spoken = Spoken()
    heard = Heard()
    fill("User name", "text", user)
    fill("Password", "password text", password)
    do(find("push button", "Log In"), "Press")

    find("text", "Quellbrook")
    find("panel", "Evidence Explorer")
    locations = find("tree", "Evidence Locations")
    click(find("table cell", "Impound Lot", locations))
    find("label", "Impound Lot")
    press("Right")
    click(find("table cell", "Row 2", locations))
    find("label", "Row 2")
    contents = find("tree", "Contents")
    fill("Search", "text", "2026-0388*")
    click(find("text", "Search"))
    press("Return")
    find("label", "Search Results")
    find("label", "Property ID")
    found = rows_of(find("list", "Search results"))
    heard.expect("selected", found[0].name)
    do(find("link", "More Results"), "Press")
    choose_in_menu("Incident ID (7)", spoken)
    find("label", "Incident ID")
    click(find("table cell", "Row 2", locations))
    find("link", "Edit")
    find("link", "Print Location Label")

    click(find("table cell", "2026-0388-08", contents), button=3)
    choose_in_menu("Print barcode label", spoken)
    labels = os.path.expanduser("~/Documents/Labels")
    heard.expect("alert", f"Sent 1 label to the folder '{labels}'.")
    click(find("table cell", "2026-0388-08", contents), button=3)
    choose_in_menu("Sign out  this item", spoken)
    heard.expect("alert", "1 item selected for signing out of storage")
    find("alert", "1 item selected for signing out of storage")
    do(find("push button", "Finish"), "Press")
    find("label", "Sign Out Evidence")
    for field in ("This evidence is being transferred from", "into the custody of", "and will be going to",
                  "for the purpose of"):
        find("combo box", field)
    do(find("push button", "Sign Out"), "Press")
    heard.expect("dialog", "Missing destination")
    find("dialog", "Missing destination")
    find("label", "Please specify where this evidence is going.")
    do(find("push button", "OK"), "Press")
    do(find("link", "Close"), "Press")

    click(find("table cell", "2026-0388-08", contents), times=2)
    find("label", "2026-0388-08")
    do(find("page tab", "Chain of Custody"), "Press")
    find("label", "Signed In")
    rows = find("list", "Chain of Custody")
    first, second = rows_of(rows)[:2]
    do(find("page tab", "Chain of Custody"), "Press")
    press("Tab")
    heard.expect("selected", first.name)
    press("Down")
    heard.expect("selected", second.name)


def categorize(user, password):
    heard = Heard()
    fill("User name", "text", user)
    fill("Password", "password text", password)
    do(find("push button", "Log In"), "Press")
    heard.expect("dialog", "Quellbrook - Categorize Storage Locations")
    find("label", "Which of These Locations are Disposal Locations?")
    locations = find("tree", "Locations")
    find("table cell", "Auction, not checked", locations)
    press("space")
    find("table cell", "Auction, checked", locations)
    find("label", "1 location selected")
    find("link", "Select All")
    press("Return")
    find("label", "Which of These Locations are Sign-Out Locations?")
    do(find("push button", "BACK"), "Press")
    find("table cell", "Auction, checked", locations)
    press("Escape")
    heard.expect("dialog", "Exit Now?")
    do(find("push button", "No"), "Press")
    find("push button", "NEXT")


def start_again(path):
    """The running program shows the record; the second one has nothing left to do."""
    subprocess.run([path, "tessarine://miproperty/open/1"], check=True, timeout=PATIENCE)
    find("page tab", "Property 2026-0398-01")
    find("label", "Gold chain necklace with heart pendant, sealed bag")


def main():
    _, path, user, password = sys.argv
    process = subprocess.Popen([path])
    try:
        walk(user, password)
        start_again(path)
    finally:
        process.terminate()
        process.wait()
    process = subprocess.Popen([path, "--fresh", "--uncategorized"])
    try:
        categorize(user, password)
    finally:
        process.terminate()
        process.wait()


if __name__ == "__main__":
    main()
