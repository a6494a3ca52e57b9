"""Boots the sample, and a copy that was edited, in fceux, and compares every page that the cartridge
shows with what rsmtool reads from the same image.

usage: emulator_test.py BUILD_FOLDER, with fceux and Xvfb installed
"""

import json
import os
import shutil
import signal
import subprocess
import sys
import tempfile
from pathlib import Path

RATINGS = [6, 13, 19, 25, 31, 38, 44, 50, 56, 63, 69, 75, 81, 88, 94, 100]
FORMATIONS = ["2RB 2WR 1TE", "1RB 4WR", "1RB 3WR 1TE"]
PATIENCE = 120  # seconds

# The edit: texts of other lengths, all formations, the displaced row, a season with a week of one
# game and one of none, and a year with the digits of the stock cartridge.
EDIT = {
    "rosterYear": "1991",
    "leagueText": ["ABC", "DEF", "GHI"],
    "teams": [{"index": i, "formation": i % 3, "plays": [(i + k) % 8 for k in range(8)]}
              for i in range(1, 29)],
    "schedule": [[{"away": 5, "home": 7}], []],
}
EDIT["teams"][10] |= {
    "city": "NEW ALTAVILLE", "nickname": "AXES", "abbreviation": "NEWA",
    "colors": [1, 22, 44, 17, 6, 50],
    "players": [{"slot": 2, "firstName": "zeb", "lastName": "EDITED", "jerseyNumber": "98"}]}
YEAR_TILES = {"1991": ["AEA8CCD1CCD1AEA8", "C6C79ED39ED3C6C7"],
              "2026": ["9CCD90919CCDD09D", "828392938283D2CF"]}


def pages_of(image, folder):
    """The pages as (rows of the screen as text, the same as bytes, palettes)."""
    pages = folder / "pages"
    pages.unlink(missing_ok=True)
    environment = os.environ | {"PAGES": str(pages), "HOME": str(folder), "SDL_AUDIODRIVER": "dummy",
                                "QT_QPA_PLATFORM": "xcb"}
    fceux = shutil.which("fceux", path=os.environ["PATH"] + ":/usr/games")
    script = Path(__file__).with_name("pages.lua")
    silent = {name: subprocess.DEVNULL for name in ("stdin", "stdout", "stderr")}
    with subprocess.Popen(["xvfb-run", "-a", fceux, "--loadlua", script, image], env=environment,
                          start_new_session=True, **silent) as process:
        try:
            process.wait(PATIENCE)  # it may crash at its end, so only what the script wrote counts
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
    lines = pages.read_text().split() if pages.exists() else []
    if lines[-1:] != ["end"]:
        sys.exit(f"fceux wrote {len(lines)} pages and not all")
    result = []
    for line in lines[:-1]:
        screen = bytes.fromhex(line)
        rows = [screen[32 * row:32 * row + 32] for row in range(30)]
        result.append(([row.decode("latin-1").rstrip() for row in rows], rows, screen[960:]))
    return iter(result)


def expect(shown, expected):
    if shown != expected:
        sys.exit(f"the cartridge shows {shown!r} and not {expected!r}")


def hex_row(values):
    return " ".join(f"{value:02X}" for value in values)


def compare(pages, league, stock):
    text, rows, _ = next(pages)
    expect(text[10].strip(), "ROSTER YEAR " + league["rosterYear"])
    expect(text[16].split()[1:], league["leagueText"])
    expect([row[12:20].hex().upper() for row in rows[12:14]], YEAR_TILES[league["rosterYear"]])
    teams = league["teams"]
    for team in teams:
        text, _, palettes = next(pages)
        expect(text[2], f"  TEAM {team['index']} OF 28")
        for row, key in zip((5, 6, 7), ("city", "nickname", "abbreviation")):
            expect(text[row][12:], team[key])
        expect(text[9][12:], "as in a stock image" if stock else FORMATIONS[team["formation"]])
        expect(text[10], "")
        plays = team["plays"]
        expect([text[11].split()[1:], text[12].split()[1:]],
               [[str(play) for play in plays[:4]], [str(play) for play in plays[4:]]])
        colors = team["colors"]
        division, conference = team["divChampColors"], team["confChampColors"]
        jerseys = [text[row][8:16] + " " + text[row][24:] for row in (17, 18)]
        expect(jerseys[0], hex_row(colors))
        expect(jerseys[1].split(), hex_row([colors[0], colors[2], colors[3], colors[5]]).split())
        expect(text[22][14:], hex_row(division))
        expect(text[24][14:], hex_row(conference))
        expect(list(palettes[5:8] + palettes[9:12]), colors)
        expect(list(palettes[17:20] + palettes[21:23]), division)
        expect(list(palettes[23:24] + palettes[25:28]), conference)
    names = {}
    for team in teams:
        for first in (0, 10, 20):
            text, _, _ = next(pages)
            expect(text[2][2:], f"{team['city'][:17]} {team['nickname'][:9]}")
            for place, player in enumerate(team["players"][first:first + 10]):
                name = f"#{player['jerseyNumber']} {player['firstName']} {player['lastName']}"
                names[team["index"], player["slot"]] = name
                row = text[6 + 2 * place]
                expect(row[1:27].rstrip(), f"{player['label']:4} {name}")
                expect(row[27:29].strip(), "KR" if player.get("kickReturner") else "")
                expect(row[29:31].strip(), "PR" if player.get("puntReturner") else "")
                expect(text[7 + 2 * place].split(),
                       [str(RATINGS[code]) for code in player["ratings"].values()])
    for number, week in enumerate(league["schedule"], 1):
        text, _, _ = next(pages)
        expect(text[2][2:], f"WEEK {number} OF 17, {len(week)} GAMES")
        games = [f" {teams[game['away']]['city'][:13]:14}@ {teams[game['home']]['city'][:13]}"
                 for game in week]
        expect(text[6:6 + len(games) + 1], games + [""])
    for side, roster in zip(("AFC", "NFC"), league["probowl"]):
        for first in (0, 15):
            text, _, _ = next(pages)
            expect(text[2], f"  {side} ALL-STARS")
            for place, entry in enumerate(roster[first:first + 15]):
                label = teams[0]["players"][first + place]["label"]
                expect(text[6 + place], f" {label:4} {teams[entry['team'] - 1]['abbreviation']:4} "
                                        + names[entry["team"], entry["slot"]])


def main():
    build = Path(sys.argv[1]).resolve()
    tool = build / "bin" / "rsmtool"
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        edit, edited = folder / "edit.json", folder / "edited.nes"
        edit.write_text(json.dumps(EDIT))
        subprocess.run([tool, "apply", build / "sample.nes", edit, edited], check=True)
        for image in (build / "sample.nes", edited):
            dump = subprocess.run([tool, "dump", image], check=True, stdout=subprocess.PIPE)
            compare(pages_of(image, folder), json.loads(dump.stdout), image != edited)
            print(f"{image.name}: all pages show what rsmtool reads")


main()
