"""Prints one table of all figures: what was measured, and what it must reach."""

import argparse
import json
import sys

REPLY_BYTES = 255
SIZES = (100, 1000, 10000, 100000)


def read_figures(paths):
    """Nanoseconds by benchmark, and the figures of *.txt files by name."""
    figures = {}
    for path in paths:
        with open(path, encoding="utf-8") as file:
            if path.endswith(".txt"):
                figures.update((name, float(value)) for name, value in map(str.split, file))
            else:
                add_times(figures, json.load(file)["benchmarks"])
    return figures


def add_times(figures, benchmarks):
    """The least of all repetitions: a busy machine only ever adds."""
    in_nanoseconds = {"ns": 1, "us": 1e3, "ms": 1e6}
    for benchmark in benchmarks:
        if benchmark["run_type"] != "iteration":
            continue
        if benchmark.get("error_occurred"):
            sys.exit(f"{benchmark['run_name']}: {benchmark['error_message']}")
        name = benchmark["run_name"].split("/iterations:")[0]
        time = benchmark["cpu_time"] * in_nanoseconds[benchmark["time_unit"]]
        figures[name] = min(time, figures.get(name, time))


def shown_time(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


class Table:
    def __init__(self, figures):
        self.figures = figures
        self.rows = []

    def at_most(self, what, measured, value, limit, unit=""):
        self.add(what, measured, value, f"at most {limit:g}{unit}", value <= limit)

    def at_least(self, what, measured, value, limit):
        self.add(what, measured, value, f"at least {limit:g}", value >= limit)

    def figure(self, what, name):
        self.rows.append((what, shown_time(self.figures[name]), "", "", ""))

    def flat(self, what, name, sizes=SIZES, limit=1.3, per=1):
        """The largest against the smallest, each divided by its size to `per`."""
        times = [self.figures[f"{name}/{size}"] for size in sizes]
        per_element = [time / size**per for time, size in zip(times, sizes)]
        self.at_most(what, ", ".join(map(shown_time, times)),
                     per_element[-1] / per_element[0], limit)

    def add(self, what, measured, value, target, reached):
        shown = f"{value:.0f}" if value >= 1000 else f"{value:.3g}"
        self.rows.append((what, measured, shown, target, "pass" if reached else "MISS"))


def polls(table):
    f = table.figures
    poll, peer = f["poll_registers/100"], f["libmodbus_read_registers"]
    measured = f"{shown_time(poll)} : {shown_time(peer)}"
    table.at_most("poll of 125 D : libmodbus reading 125", measured, poll / peer, 1)
    table.at_most("the same, aim", measured, poll / peer, 0.5)
    table.figure("poll of one D, 1,000 cached", "poll_one_register/1000")
    table.figure("libmodbus reading 2000 coils", "libmodbus_read_coils")
    flat = "100 to 100,000 cached, largest : smallest"
    table.flat(f"poll of 125 D, {flat}", "poll_registers", per=0)
    table.flat(f"poll of 2000 M, {flat}", "poll_coils", per=0)
    table.flat(f"poll of 62 32CV, {flat}", "poll_double_words", per=0)
    table.flat(f"poll of 125 D, all changed and read back, {flat}", "poll_changed_registers", per=0)
    table.flat(f"poll of 125 D whose records lie scattered, {flat}", "poll_scattered_registers",
               per=0)
    for size in SIZES:
        table.figure(f"plain search, storing 125 D, {size:,} cached", f"plain_poll_registers/{size}")


def planning(table):
    f = table.figures
    merged = f["merge/10000"] / 10000
    table.at_most("merge of 10,000 addresses, ns each", shown_time(f["merge/10000"]), merged, 300)
    table.flat("merge, 10,000 to 100,000, growth per address", "merge", (10000, 100000), 1.6)
    plain = f["plain_merge/10000"]
    table.at_least("merge of 10,000, plain : driver",
                   f"{shown_time(plain)} : {shown_time(f['merge/10000'])}",
                   plain / f["merge/10000"], 100)
    table.figure("merge of 1,000 addresses", "merge/1000")
    table.flat("marking 32CV, 560 to 56,000, growth per value", "mark_double_words",
               (560, 5600, 56000))


def values(table):
    table.flat("intf_getData of one address, 100 to 100,000 cached", "get_data", per=0)
    table.flat("intf_setData of one address, 100 to 100,000 cached", "set_data", per=0)


def watch_lists(table):
    sizes = (1000, 10000, 100000)
    table.flat("listing tags, 1,000 to 100,000, growth per tag", "list_tags", sizes, 1.6)
    table.flat("cutting them into pieces, 1,000 to 100,000, growth per tag", "watch_pieces", sizes,
               1.6)
    table.flat("a read of 125 D taken by a list of 1,000 to 100,000", "list_read", sizes, per=0)
    table.flat("a change taken by a list of 1,000 to 100,000", "list_change", sizes, per=0)


def recording(table):
    table.figure("recording 1,000 values in a table (CSV)", "record_csv")
    table.figure("recording 1,000 values in a database (SQLite)", "record_sqlite")


def window(table):
    frame = table.figures["a frame of 10,000 values"]
    table.at_most("a frame of the window's grid, 10,000 values read since the last", shown_time(frame),
                  frame / 1e6, 16, " ms")


def crc(table):
    f = table.figures
    peer = (f["libmodbus_send_raw/254"] - f["libmodbus_send_raw/14"]) / 240 * REPLY_BYTES
    table.at_least("CRC of 255 bytes, libmodbus : driver",
                   f"{shown_time(peer)} : {shown_time(f['crc'])}", peer / f["crc"], 5)
    table.figure("CRC of 255 bytes, bit by bit", "crc_bit_by_bit")


def memory(table):
    for what, name, limit, unit in (
            ("heap per cached address at 100,000", "bytes_per_address", 96, " bytes"),
            ("the same, each key with a name of its own", "bytes_per_address_own_names", 96,
             " bytes"),
            ("heap allocations per poll of 125 D", "allocations_per_poll", 2, ""),
            ("the same, eight requests in turn", "allocations_per_poll_of_eight", 2, ""),
            ("the same, one request, all changed", "allocations_per_changed_poll", 2, "")):
        value = table.figures[name]
        table.at_most(what, f"{value:.3g}{unit}", value, limit, unit)
    table.figure("loading and unloading the library", "load_and_unload")


def print_plain(rows):
    widths = [max(map(len, column)) for column in zip(*rows)]
    for row in rows:
        print("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip())


def print_markdown(rows):
    for number, row in enumerate(rows):
        print("| " + " | ".join(row) + " |")
        if number == 0:
            print("|---" * len(row) + "|")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--markdown", action="store_true")
    parser.add_argument("results", nargs="+")
    arguments = parser.parse_args()

    table = Table(read_figures(arguments.results))
    for part in (polls, planning, values, watch_lists, recording, window, crc, memory):
        part(table)
    rows = [("What", "Measured", "Ratio or figure", "Target", "Reached")] + table.rows
    (print_markdown if arguments.markdown else print_plain)(rows)


main()
