"""processes: two and eight clients record and import at once; some of them are killed."""
from stand import GOALS, check_integrity, notes_of, require, version_of
from story import Story

QUICK = 50


def cases(stand):
    return [(count, killed) for count in (2, 8) for killed in (0, count // 2) for _ in range(75)]


def run(stand, random, case):
    count, killed = case
    stand.fresh()
    stories = []
    for number in range(count):
        story = Story(stand, 30_000).open().load(1 + number)
        for step in range(random.randint(4, 10)):
            if random.random() < 0.15:
                story.load(1 + random.randrange(count), people=3)
            elif random.random() < 0.1:
                story.open()
            else:
                story.record(random.choice(GOALS), f"{number}-{step}")
        stories.append(story)
    processes = [stand.start("talk", shim={"AT": random.randint(1, 350), "ACT": "kill"}
                             if number < killed else None) for number in range(count)]
    for process, story in zip(processes, stories):
        process.stdin.write("".join(line + "\n" for _, _, line in story.steps))
        process.stdin.close()
        process.stdin = None
    endings = [stand.finish(process, None) for process in processes]
    for number, ending in enumerate(endings):
        require(ending.code == 0 or number < killed and ending.code == -9,
                f"client {number} ended with {ending.code}: {ending.diagnostics}")
        wrong = [text for good, text in ending.answers if not good]
        require(not wrong, f"client {number} was refused: {wrong[:1]}")
    goals = stand.content()
    require({version_of(goal) for goal in goals.values()} <= {*range(1, count + 1)}, "whose version?")
    for goal in goals:
        check_outcomes(goal, notes_of(goals[goal]), stories, endings)
    check_integrity(stand.store)


def check_outcomes(goal, notes, stories, endings):
    require(len(set(notes)) == len(notes), f"an outcome is there twice: {notes}")
    explained = set()
    for number, (story, ending) in enumerate(zip(stories, endings)):
        wanted = [what[1] for kind, what, _ in story.acknowledged(ending.answers)
                  if kind == "record" and what[0] == goal]
        underway = [what[1] for kind, what, _ in story.steps[len(ending.answers):][:1]
                    if kind == "record" and what[0] == goal]
        mine = [note for note in notes if note.startswith(f"{number}-")]
        require(mine in (wanted, wanted + underway), f"client {number}: {wanted}, but {mine}")
        explained |= {*mine}
    require(explained == {*notes}, f"nobody recorded {[*{*notes} - explained]}")
