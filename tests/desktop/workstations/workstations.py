"""Two programs transfer the same items of one department at the same time, through their windows.

Usage: workstations.py PROGRAM SCRIPTS ROUNDS
PROGRAM is the workstation; SCRIPTS is a shell file that defines with_x_server. Each program runs ROUNDS transfers on an
X server of its own. Then the database must hold exactly the custody rows of the transfers that were reported as done:
no gap, no double, no row that contradicts the one before it. In many rounds, at least one batch must have been refused
as stale.
"""

import collections
import os
import sqlite3
import subprocess
import sys
import tempfile

STORED, OUT = 2, 4
MANY_ROUNDS = 100
SECONDS_FOR_A_ROUND = 30
KINDS = {"Municipal Court": OUT, "Officer Custody": OUT, "Prosecutor's Office": OUT, "Refrigerated Storage": STORED,
         "Intake Lockers": STORED}
CHAINS = """
    SELECT p.PropertyID, t.SeqNo, p.CurrTrackSeq, f.LastName, b.LastName, s.Name, s.Type, c.Description, t.DateReceived
    FROM PropertyTracking t INNER JOIN Property p ON p.PropertyNo = t.PropertyNo
    LEFT JOIN Person f ON f.PersonNo = t.ReceivedFrom LEFT JOIN Person b ON b.PersonNo = t.ReceivedBy
    LEFT JOIN StorageLocation s ON s.IdNo = t.StorageLocNo
    LEFT JOIN CodeTable c ON c.TableNumber = 38 AND c.Code = t.CustodyReasonNo
    ORDER BY p.PropertyID, t.SeqNo"""


def chains(database):
    rows = collections.defaultdict(list)
    with sqlite3.connect(database) as connection:
        for row in connection.execute(CHAINS):
            rows[row[0]].append(row[1:])
    return rows


def work(program, scripts, database, rounds, folder):
    reports = [f"{folder}/report-{seed}.txt" for seed in (1, 2)]
    programs = [subprocess.Popen(["bash", "-c", f'source "{scripts}"; with_x_server "$@"', "with_x_server", program,
                                  database, str(seed), str(rounds), report])
                for seed, report in zip((1, 2), reports)]
    if any([each.wait(SECONDS_FOR_A_ROUND * rounds) != 0 for each in programs]):
        sys.exit("A program failed.")
    return [line.rstrip("\n").split("|") for report in reports for line in open(report, encoding="utf-8")]


def verify(before, after, outcomes, rounds):
    done = collections.Counter(tuple(line[1:]) for line in outcomes if line[0] == "done")
    refused = sum(line[0] == "refused" for line in outcomes)
    written = collections.Counter()
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
            written[(item, row[2], row[3], row[4], row[6])] += 1
            if previous[5] == OUT and row[5] == OUT:
                faults.append(f"{item}: row {row[0]} signs out what is out")
            if row[7] < previous[7]:
                faults.append(f"{item}: row {row[0]} is older than the one before it")
            if row[5] != KINDS[row[4]]:
                faults.append(f"{item}: row {row[0]} is at {row[4]}")
    if written != done:
        faults.append(f"written but not reported {written - done}, reported but not written {done - written}")
    if len(outcomes) != 2 * rounds:
        faults.append(f"{len(outcomes)} of {2 * rounds} transfers were reported")
    if refused == 0 and rounds >= MANY_ROUNDS:
        faults.append("no batch was stale")
    print(f"{len(outcomes)} transfers: {sum(done.values())} done, {refused} refused")
    if faults:
        sys.exit("\n".join(faults))


def main():
    _, program, scripts, rounds = sys.argv
    program, scripts, rounds = os.path.abspath(program), os.path.abspath(scripts), int(rounds)
    with tempfile.TemporaryDirectory() as folder:
        database = folder + "/department.sqlite"
        subprocess.run([program, "--create", database], check=True)
        before = chains(database)
        outcomes = work(program, scripts, database, rounds, folder)
        verify(before, chains(database), outcomes, rounds)


if __name__ == "__main__":
    main()
