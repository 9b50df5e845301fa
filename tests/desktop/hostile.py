"""Browses and searches a department with hostile data, as a screen reader does.

Usage: hostile.py PROGRAM USER PASSWORD
Starts the program once, so that it creates the sample department in the folders of the environment, which the caller
keeps scratch. Adds to it: names of 10,000 characters, other scripts, markup, 20 levels of locations, items without any
value, and searches with as many hits as the list shows and with one more. Then browses and searches all of it.
"""

import glob
import os
import sqlite3
import subprocess
import sys
import time

from screen_reader import PATIENCE, click, do, fill, find, press

LONG = "W" * 9_990 + " long name"
SCRIPTS = ["Склад улик", "北の証拠室", "مخزن الأدلة", "<b>Bold</b> & 'quoted' \"%_[]", LONG]
LEVELS = 20
MOST_SHOWN = 36_765
NOW = "2026-01-02T09:31:00.000"


def connect(path):
    database = sqlite3.connect(path)
    database.executescript("PRAGMA foreign_keys = ON; PRAGMA recursive_triggers = ON;")
    return database


def add_location(database, name, path):
    row = database.execute("INSERT INTO StorageLocation (Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) "
                           "VALUES (?, 2, ?, NULL, ?, ?)", (name, path, NOW, NOW))
    return row.lastrowid


def store(database, where, location):
    """Gives the new items their first custody row, at the location."""
    database.execute("INSERT INTO PropertyTracking (PropertyNo, SeqNo, StorageLocNo, LastUpdated) "
                     f"SELECT PropertyNo, 1, ?, ? FROM Property WHERE CurrTrackSeq IS NULL AND {where}",
                     (location, NOW))
    database.execute(f"UPDATE Property SET CurrTrackSeq = 1 WHERE CurrTrackSeq IS NULL AND {where}")


def add_hostile_data(path):
    with connect(path) as database:
        for name in SCRIPTS:
            add_location(database, name, "/0/")
        path = "/0/"
        for level in range(1, LEVELS + 1):
            location = add_location(database, f"Level {level}", path)
            path += f"{location}/"
        database.execute("INSERT INTO Property (PropertyID) VALUES (NULL)")
        store(database, "PropertyID IS NULL", location)
        for name in SCRIPTS:
            database.execute("INSERT INTO Property (PropertyID, Description) VALUES (?, ?)", (name[:40], name))
        store(database, "1", location)
        for prefix, count in (("few", MOST_SHOWN), ("many", MOST_SHOWN + 1)):
            database.execute("WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                             f"INSERT INTO Property (PropertyID) SELECT '{prefix}-' || i FROM n", (count,))
        store(database, "1", location)


def search(text):
    fill("Search", "text", text)
    click(find("text", "Search"))
    press("Return")
    find("label", f"Showing stored items matching '{text}'")


def walk(user, password):
    fill("User name", "text", user)
    fill("Password", "password text", password)
    do(find("push button", "Log In"), "Press")
    locations = find("tree", "Evidence Locations")
    for name in SCRIPTS:
        find("table cell", name, locations)
    click(find("table cell", SCRIPTS[1], locations))
    find("label", SCRIPTS[1])

    click(find("table cell", "Level 1", locations))
    for level in range(1, LEVELS):
        press("Right")
        find("table cell", f"Level {level + 1}", locations)
        press("Down")
        find("label", f"Level {level + 1}")

    for name in SCRIPTS:
        search(name[:40] if name != LONG else "*long name")
        find("label", "Property ID" if name != LONG else "Description")
        find("label", "1 Result")
    search("few-*")
    find("label", "36,765 Results")
    find("list", "Search results")
    find("label", "few-1")
    search("many-*")
    find("label", "36,766 Results")
    find("label", "Too many results.")
    search("nothing of this kind")
    find("label", "No items found.")


def main():
    _, path, user, password = sys.argv
    process = subprocess.Popen([path])
    find("push button", "Log In")
    process.terminate()
    process.wait()
    databases = glob.glob(os.environ["XDG_DATA_HOME"] + "/**/*.sqlite", recursive=True)
    if len(databases) != 1:
        sys.exit(f"There is not one department but {databases}.")
    add_hostile_data(databases[0])
    time.sleep(1)  # the accessibility bus forgets the first program
    process = subprocess.Popen([path])
    try:
        walk(user, password)
        if process.poll() is not None:
            sys.exit("The program has ended.")
    finally:
        process.terminate()
        process.wait(PATIENCE)


if __name__ == "__main__":
    main()
