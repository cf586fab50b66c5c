"""The figures: runs, and their records."""
import json
import statistics


class Results:
    def __init__(self):
        self.runs = {}  # (candidate, size, measure, stray) -> values

    def add(self, candidate, size, measure, value, stray=0):
        self.runs.setdefault((candidate, size, measure, stray), []).append(value)

    def median(self, candidate, size, measure, stray=0):
        """None when it was not measured."""
        values = self.runs.get((candidate, size, measure, stray))
        return statistics.median(values) if values else None

    def most(self, candidate, size, measure):
        """The highest count of all runs: a median would hide three bad runs of seven."""
        values = self.runs.get((candidate, size, measure, 0))
        return int(max(values)) if values else None

    def records(self):
        for (candidate, size, measure, stray), values in self.runs.items():
            record = {"candidate": candidate, "size": size, "measure": measure,
                      "unit": unit_of(measure), "median": statistics.median(values),
                      "minimum": min(values), "maximum": max(values), "runs": len(values)}
            if stray:
                record["strayOutcomes"] = stray
            yield record

    @classmethod
    def read(cls, file):
        """The figures of an earlier run that the tables need: the medians, and the maxima."""
        results = cls()
        for record in json.loads(file.read_text(encoding="utf-8")):
            for value in (record["minimum"], record["median"], record["maximum"]):
                results.add(record["candidate"], record["size"], record["measure"], value,
                            record.get("strayOutcomes", 0))
        return results

    def write(self, file):
        file.write_text(json.dumps(list(self.records()), indent=1) + "\n", encoding="utf-8")


def unit_of(measure):
    if measure.startswith(("memory", "anonymous", "inspect.peak")):
        return "MiB"
    if measure.startswith("instructions"):
        return "instructions"
    if "/" in measure:
        return "ns"
    if measure.startswith(("exposed", "own share")):
        return "share"
    if measure in ("elements", "missing"):
        return "elements"
    return "ms"
