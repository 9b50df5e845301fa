"""Two programs transfer the same items of one department at the same time, through their windows.

Usage: workstations.py PROGRAM SCRIPTS ROUNDS
PROGRAM is the workstation; SCRIPTS is a shell file that defines with_x_server. Each program runs ROUNDS transfers on an
X server of its own. Then the database must hold exactly the custody rows of the transfers that were reported as done:
no gap, no double, no row that contradicts the one before it. Items must have the status and the note of the disposal
that was reported as done, or those from before the test. In many rounds, at least one batch and one disposal must have
been refused as stale.
"""

import collections
import os
import sqlite3
import subprocess
import sys
import tempfile

STORED, OUT, DISPOSED = 2, 4, 8
MANY_ROUNDS = 100
SECONDS_FOR_A_ROUND = 30
KINDS = {"Municipal Court": OUT, "Officer Custody": OUT, "Prosecutor's Office": OUT, "Refrigerated Storage": STORED,
         "Intake Lockers": STORED, "Auction": DISPOSED, "Released to Agency": DISPOSED, "Returned to Owner": DISPOSED}
Outcome = collections.namedtuple("Outcome", "kind item giver taker place reason status note begun ended")
CHAINS = """
    SELECT p.PropertyID, t.SeqNo, p.CurrTrackSeq, f.LastName, b.LastName, s.Name, s.Type, c.Description, t.DateReceived,
        t.LastUpdated
    FROM PropertyTracking t INNER JOIN Property p ON p.PropertyNo = t.PropertyNo
    LEFT JOIN Person f ON f.PersonNo = t.ReceivedFrom LEFT JOIN Person b ON b.PersonNo = t.ReceivedBy
    LEFT JOIN StorageLocation s ON s.IdNo = t.StorageLocNo
    LEFT JOIN CodeTable c ON c.TableNumber = 38 AND c.Code = t.CustodyReasonNo
    ORDER BY p.PropertyID, t.SeqNo"""
DISPOSITIONS = """
    SELECT p.PropertyID, p.HasFinalDisposition, d.Description, p.DisposalNote
    FROM Property p LEFT JOIN CodeTable d ON d.TableNumber = 30 AND d.Code = p.CurrStatusNo"""


def contents(database):
    chains = collections.defaultdict(list)
    with sqlite3.connect(database) as connection:
        for row in connection.execute(CHAINS):
            chains[row[0]].append(row[1:])
        return chains, {row[0]: row[1:] for row in connection.execute(DISPOSITIONS)}


def work(program, scripts, database, rounds, folder):
    reports = [f"{folder}/report-{seed}.txt" for seed in (1, 2)]
    programs = [subprocess.Popen(["bash", "-c", f'source "{scripts}"; with_x_server "$@"', "with_x_server", program,
                                  database, str(seed), str(rounds), report])
                for seed, report in zip((1, 2), reports)]
    if any([each.wait(SECONDS_FOR_A_ROUND * rounds) != 0 for each in programs]):
        sys.exit("A program failed.")
    return [Outcome(*line.rstrip("\n").split("|")) for report in reports for line in open(report, encoding="utf-8")]


def verify_rows(before, after, outcomes):
    reported = collections.defaultdict(list)
    for each in outcomes:
        if each.kind == "done":
            reported[each[1:6]].append((each.begun, each.ended))
    written = collections.defaultdict(list)
    faults = []
    for item, rows in after.items():
        if [row[0] for row in rows] != list(range(1, len(rows) + 1)):
            faults.append(f"{item}: the rows are {[row[0] for row in rows]}")
        if rows[-1][1] != len(rows):
            faults.append(f"{item}: the current row is {rows[-1][1]} of {len(rows)}")
        if rows[:len(before[item])] != [row[:1] + (rows[-1][1],) + row[2:] for row in before[item]]:
            faults.append(f"{item}: earlier rows have changed")
        for previous, row in zip(rows, rows[1:]):
            if row[0] <= len(before[item]):
                continue
            written[(item, row[2], row[3], row[4], row[6])].append((row[8], row[7]))
            if previous[5] == OUT and row[5] != STORED:
                faults.append(f"{item}: row {row[0]} signs out or disposes of what is out")
            if previous[5] == DISPOSED:
                faults.append(f"{item}: row {row[0]} follows a disposal")
            if row[7] < previous[7]:
                faults.append(f"{item}: row {row[0]} is older than the one before it")
            if row[5] != KINDS[row[4]]:
                faults.append(f"{item}: row {row[0]} is at {row[4]}")
    for transfer in reported.keys() | written.keys():
        times, windows = sorted(written[transfer]), sorted(reported[transfer])
        if len(times) != len(windows) or not all(begun <= updated <= received <= ended for (updated, received),
                                                 (begun, ended) in zip(times, windows)):
            faults.append(f"{transfer}: written at {times}, reported at {windows}")
    return faults


def verify_dispositions(before, after, disposals):
    faults = []
    done = collections.defaultdict(list)
    for each in disposals:
        if each.kind == "done":
            done[each.item].append((1, each.status, each.note))
    for item, disposition in after.items():
        if [disposition] != (done[item] or [before[item]]):
            faults.append(f"{item}: has {disposition}, reported {done[item]}, before {before[item]}")
    return faults


def verify(before, after, outcomes, rounds):
    disposals = [each for each in outcomes if each.status]
    counts = collections.Counter(each.kind for each in outcomes)
    counts_of_disposals = collections.Counter(each.kind for each in disposals)
    faults = verify_rows(before[0], after[0], outcomes) + verify_dispositions(before[1], after[1], disposals)
    if len(outcomes) != 2 * rounds:
        faults.append(f"{len(outcomes)} of {2 * rounds} transfers were reported")
    if any(each.kind == "gone" and not after[1][each.item][0] for each in outcomes):
        faults.append("an item was reported as gone that was not disposed of")
    if not counts_of_disposals["done"]:
        faults.append("no item was disposed of")
    if rounds >= MANY_ROUNDS and not (counts["refused"] and counts_of_disposals["refused"]):
        faults.append("no batch or no disposal was stale")
    print(f"{len(outcomes)} transfers: {dict(counts)}, of them {len(disposals)} disposals: {dict(counts_of_disposals)}")
    if faults:
        sys.exit("\n".join(faults))


def main():
    _, program, scripts, rounds = sys.argv
    program, scripts, rounds = os.path.abspath(program), os.path.abspath(scripts), int(rounds)
    with tempfile.TemporaryDirectory() as folder:
        database = folder + "/department.sqlite"
        subprocess.run([program, "--create", database], check=True)
        before = contents(database)
        outcomes = work(program, scripts, database, rounds, folder)
        verify(before, contents(database), outcomes, rounds)


if __name__ == "__main__":
    main()
