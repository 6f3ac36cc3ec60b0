# SPDX-License-Identifier: Apache-2.0
"""Pages of --html in a browser: what they show is what their JSON says. Pictures go to build/web for people to look at."""
import glob
import json
import os
import re
import statistics
import subprocess
import sys
import unittest

from browser import Browser

ROOT = os.path.realpath(os.path.join(os.path.dirname(__file__), "../.."))
QZCAM = os.environ.get("QZCAM", f"{ROOT}/build/dev/bin/qzcam")
OUT = f"{ROOT}/build/web"
SIZES = [(360, 740), (1280, 900), (2560, 1440)]
TONES = {"fine": "good", "mistyped": "bad", "malformed": "bad", "doubtful": "warn", "missing": "plain", "noEntry": "plain"}

# The contrast of each text in sight with what is behind it; those that are hard to read are named.
CONTRAST = """
const parse = (c) => { const m = c.match(/[\\d.]+/g).map(Number); return m.length < 4 ? [...m, 1] : m; };
const lum = (c) => { const [r, g, b] = c.slice(0, 3).map((v) => { v /= 255; return v <= .03928 ? v / 12.92 : ((v + .055) / 1.055) ** 2.4; });
  return .2126 * r + .7152 * g + .0722 * b; };
const ground = (e) => { for (; e; e = e.parentElement) { const c = parse(getComputedStyle(e).backgroundColor); if (c[3] === 1) return c; }
  return [255, 255, 255, 1]; };
const hard = [];
for (const e of document.querySelectorAll('#page *')) {
  if (e.closest('svg') || !e.offsetParent || ![...e.childNodes].some((n) => n.nodeType === 3 && n.data.trim())) continue;
  const [a, b] = [lum(parse(getComputedStyle(e).color)), lum(ground(e))];
  const ratio = (Math.max(a, b) + .05) / (Math.min(a, b) + .05);
  if (ratio < 4.5) hard.push(e.textContent.slice(0, 40) + ' ' + ratio.toFixed(2));
}
return hard;"""

# One step of zooming or moving the lanes, and its picture.
FRAME = """
const [n, done] = arguments;
document.querySelector('.lane-scroller').dispatchEvent(new WheelEvent('wheel',
  {ctrlKey: n % 3 > 0, shiftKey: n % 3 === 0, deltaY: n < 20 ? -90 : 90, clientX: 600, clientY: 500, cancelable: true}));
requestAnimationFrame(() => requestAnimationFrame(done));"""


def qzcam(*words, status=(0, 1)):
    done = subprocess.run([QZCAM, *words], capture_output=True, text=True, cwd=ROOT, check=False)
    assert done.returncode in status, f"{words}: {done.stderr}"
    return done.stdout


def page(name, *words):
    path = f"{OUT}/{name}.html"
    qzcam(*words, "--html", path)
    return path


def events(path):
    with open(path, encoding="utf-8") as file:
        text = re.search(r'data-name="events">\n(.*?)</script>', file.read(), re.S).group(1)
    return [json.loads(line) for line in text.splitlines()]


class Pages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        os.makedirs(OUT, exist_ok=True)
        cls.browser = Browser()

    @classmethod
    def tearDownClass(cls):
        cls.browser.close()

    def task_time(self):
        return next(each["value"] for each in self.browser.cdp("Performance.getMetrics")["metrics"] if each["name"] == "TaskDuration")

    def badges(self):
        return self.browser.texts("header .badge")

    def looks_well(self, path, view, name):
        """Three sizes, two schemes: a picture of each, nothing beside the page, nothing hard to read, no noise."""
        for width, height in SIZES:
            for scheme in ("light", "dark"):
                with self.subTest(page=name, width=width, scheme=scheme):
                    self.browser.open(path, view, width, height, scheme)
                    self.browser.picture(f"{OUT}/{name}-{width}-{scheme}.png")
                    self.assertLessEqual(self.browser.get("document.documentElement.scrollWidth - document.documentElement.clientWidth"), 0)
                    self.assertEqual(self.browser.run(CONTRAST), [])
                    self.assertEqual(self.browser.log(), [])
                    self.assertEqual([url for url in self.browser.requests() if not url.startswith(f"file://{path}")], [])

    def test_every_example(self):
        for session in sorted(glob.glob(f"{ROOT}/examples/*.qzs")):
            name = os.path.basename(session)[:-4]
            path = page(name, "run", session)
            all_events = events(path)
            met = [event["met"] for event in all_events if event.get("event") == "expectation"]
            requests = sum(event.get("event") == "request" for event in all_events)
            with self.subTest(name):
                self.browser.open(path, "timeline")
                self.assertIn(f"{sum(met):,} met" if met else "no expectations", self.badges())
                self.assertIn(f"{requests:,} request{'s' if requests != 1 else ''}", self.badges())
                changing = {(event["event"], entry["tag"]) for event in all_events if event.get("event") in ("request", "result")
                            for entry in event["entries"] if entry["change"] != "none"}
                counts = dict(re.match(r"(.*?)(\d+)$", text).groups() for text in self.browser.texts(".timeline .toggle"))
                self.assertEqual(int(counts["Request entries"]), sum(kind == "request" for kind, _ in changing))
                self.assertEqual(int(counts["Result entries"]), sum(kind == "result" for kind, _ in changing))
                self.assertEqual((self.browser.log(), len(self.browser.requests())), ([], 1))
        self.looks_well(f"{OUT}/session.html", "timeline", "timeline")

    def test_device(self):
        path = page("check", "check", "--device", "examples/phone.dumpsys")
        check = json.loads(qzcam("check", "--device", "examples/phone.dumpsys", "--json"))
        self.looks_well(path, "device", "device")
        self.browser.open(path)
        counts = {button: count for button, count in self.browser.run(
            "return [...document.querySelectorAll('.device .toggle')].map((b) => [b.dataset.name, Number(b.querySelector('.count').textContent)]);")}
        self.assertEqual({name: counts[name] for name in check["counts"]}, check["counts"])
        rows = self.browser.run("return [...document.querySelectorAll('.device [role=option]')].map((r) => "
                                "[r.querySelector('code').title, r.querySelector('.badge').className, r.querySelector('.use').textContent]);")
        expected = {(tag["tag"], tag["use"]): TONES[tag["verdict"]] for each in check["features"] for tag in each["tags"]}
        self.assertGreater(len(rows), 10)
        for tag, tone, use in rows:
            self.assertEqual(tone, f"badge {expected[tag, use]}", tag)
        self.browser.click('.device .toggle[data-name="missing"]')
        left = len(expected) - check["counts"]["missing"]
        self.assertEqual(self.browser.texts(".device .middle > p"), [f"{left} of {len(expected)} tags"])
        self.browser.type(".device input[type=search]", "zsl-mode")
        self.assertEqual(self.browser.texts(".device .row .name"), ["qz-zsl-mode", "qz-zsl-mode", "zslSupported"])
        self.browser.run("document.querySelector('.list').focus()")
        self.browser.keys("Down")
        details = self.browser.texts(".details")[0]
        for text in ("mistyped", "the update fails (-38)", "setZslMode", "off → 0, on → 1"):
            self.assertIn(text, details)
        self.browser.click(".device .toggle[data-name=result]")
        self.assertEqual(self.browser.texts(".device .middle > p"), [f"2 of {len(expected)} tags"])

    def test_timeline(self):
        path = page("failures", "run", "tests/web/failures.qzs", "--device", "examples/phone.dumpsys")
        self.looks_well(path, "timeline", "failures")
        self.browser.open(path, "timeline")
        self.assertEqual(self.badges(), ["2 met", "1 failed", "2 not written as set", "2 requests"])
        findings = self.browser.texts(".findings .row")
        self.assertEqual(len(findings), 3)
        self.assertIn("wrong type" "zsl-mode=on", findings[0])
        self.assertIn("expected 6, but there is byte[1] 7", findings[1])
        self.browser.click(".findings .row:nth-child(1)")
        for text in ("wrong type", "declared as int32", "line 3", "refused, status -38"):
            self.assertIn(text, self.browser.texts(".details")[0])
        self.browser.picture(f"{OUT}/failures-chosen.png")
        # The failed expectation leads to the entry, and that to its parameter.
        self.browser.click(".findings .row:nth-child(2)")
        self.assertEqual(self.browser.texts(".chain code"), ["iso = 1600", "iso = 7", "expect-entry iso 6"])
        self.assertEqual(self.browser.get("[document.querySelectorAll('.link').length, document.querySelectorAll('.frame').length]"), [2, 3])
        self.browser.click("#only-chain")
        self.assertEqual(len(self.browser.texts(".lanes .label")), 3)
        self.browser.click("#only-chain")
        self.browser.run("document.querySelector('.lane-scroller').focus()")
        self.browser.keys("Right")
        self.assertIn("expect-entry iso 5", self.browser.texts(".details")[0])
        self.browser.keys("Down", "Down")
        self.assertIn("Parameter · request 2, line 7iso", self.browser.texts(".details")[0])
        pieces = "document.querySelector('.overview .window').getAttribute('width')"
        whole = float(self.browser.get(pieces))
        self.browser.keys("+", "+")
        near = float(self.browser.get(pieces))
        self.assertLess(near, whole / 2)
        box = self.browser.get("document.querySelector('.lane-scroller').getBoundingClientRect().toJSON()")
        before = self.browser.get("document.querySelector('.overview .window').getAttribute('x')")
        self.browser.point(box["x"] + 600, box["y"] + 60, (box["x"] + 400, box["y"] + 60))
        self.assertNotEqual(self.browser.get("document.querySelector('.overview .window').getAttribute('x')"), before)
        self.browser.keys("0", "Escape")
        self.assertEqual(float(self.browser.get(pieces)), whole)
        self.browser.type(".timeline input[type=search]", "zsl")
        self.assertEqual(self.browser.texts(".timeline > p.muted"), ["3 of 8 lanes, 2 requests"])
        lane = self.browser.get("document.querySelectorAll('.lanes .lane')[2].getBoundingClientRect().toJSON()")
        self.browser.point(lane["x"] + lane["width"] * 0.6, lane["y"] + 12)
        self.assertIn("zsl-mode", self.browser.texts(".details h2")[0])

    def test_chain_to_message(self):
        path = page("results", "run", "examples/results.qzs")
        self.browser.open(path, "timeline")
        self.browser.type(".timeline input[type=search]", "preview-parameters")
        self.browser.run("document.querySelector('.lane-scroller').focus()")
        self.browser.keys("End", "Left")
        chain = self.browser.texts(".chain code")
        self.assertTrue(any("exposureStateHint" in text for text in chain), chain)
        self.assertEqual(chain[-1], "preview-parameters")

    def test_sensor(self):
        path = page("sensor", "run", "tests/web/sensor.qzs")
        self.looks_well(path, "sensor", "sensor")
        self.browser.open(path, "sensor")
        device = next(event for event in events(path) if event.get("event") == "device")
        width, height = device["sensor"]["activeArray"][2:]

        def boxes(name):
            return self.browser.run("return [...document.querySelectorAll('rect.shape.' + arguments[0])].map((r) => "
                                    "['x', 'y', 'width', 'height'].map((a) => Number(r.getAttribute(a))));", name)

        ratio = 40 / 99 * (device["sensor"]["maxDigitalZoom"][0] - 1) + 1
        crop = [width * (1 - 1 / ratio) / 2, height * (1 - 1 / ratio) / 2, width / ratio, height / ratio]
        self.assertEqual(self.browser.get("document.querySelectorAll('rect.shape.unsent').length"), 1)
        for shown, expected in ((boxes("crop")[0], crop), (boxes("face")[1], [2500, 300, 600, 700]),
                                (boxes("focus")[0], [crop[0] + crop[2] * .4, crop[1] + crop[3] * .4, crop[2] * .2, crop[3] * .2])):
            for one, other in zip(shown, expected):
                self.assertAlmostEqual(one, other, delta=1)
        self.browser.run("document.querySelector('.slider input').focus()")
        self.browser.keys("Right")
        self.assertIn("Request 2 of 4", self.browser.texts(".slider output")[0])
        outside = boxes("focus")[0]
        crop = boxes("crop")[0]
        self.assertGreater(outside[0] + outside[2], crop[0] + crop[2])
        self.browser.keys("Right")
        self.assertEqual(boxes("sub"), [[1000, 750, 2000, 1500]])
        self.browser.picture(f"{OUT}/sensor-secondary.png")
        self.browser.click("#layer-sub")
        self.assertEqual(boxes("sub"), [])
        self.browser.run("document.querySelector('.slider input').focus()")
        self.browser.keys("End")
        self.assertEqual(self.browser.get("document.querySelector('#layer-focus').disabled"), True)

    def test_trace(self):
        path = page("trace", "trace", "examples/phone.log", "examples/phone.dumpsys")
        lines = [json.loads(line) for line in qzcam("trace", "examples/phone.log", "examples/phone.dumpsys", "--json").splitlines()]
        self.looks_well(path, "timeline", "trace")
        self.browser.open(path, "timeline")
        refused = [row["key"] for row in lines if row.get("event") == "parameter" and row["refused"]["times"] > 0]
        self.assertEqual(self.browser.texts(".findings .row:has(.bad) .name"), refused)
        items = [line for line in lines if "line" in line]
        entries = sum(line["event"] == "entry" for line in items)
        self.assertIn(f"{entries} entr{'y' if entries == 1 else 'ies'}", self.badges())
        for index in range(len(self.browser.texts(".findings .row"))):
            self.browser.click(f".findings .row:nth-child({index + 1})")
            line = int(re.search(r"Line(\d+)", self.browser.texts(".details .facts")[0]).group(1))
            self.assertIn(line, [item["line"] for item in items])
        self.browser.picture(f"{OUT}/trace-chosen.png")

    def test_matrix(self):
        inputs = ["examples/phone.dumpsys", "examples/device.dumpsys", "examples/first.qzs"]
        path = page("matrix", "matrix", *inputs)
        matrix = json.loads(qzcam("matrix", "--json", *inputs))
        self.looks_well(path, "", "matrix")
        self.browser.open(path)
        cells = self.browser.run("return [...document.querySelectorAll('.matrix-table tbody tr')].map((r) => [...r.querySelectorAll('.cell')].map((c) => c.className));")
        expected = [[f"cell {TONES[cell['verdict']] if cell else 'bad'}" for cell in row["cells"]] for row in matrix["features"]]
        self.assertEqual(cells, expected)
        self.assertIn("1 not usable", self.badges())
        self.browser.click(".matrix-table .cell.bad")
        bad = next(cell for row in matrix["features"] for cell in row["cells"] if not cell or cell["verdict"] in ("mistyped", "malformed"))
        self.assertIn(bad["what"], self.browser.texts(".details")[0])
        self.browser.click(".feature-name")
        tags = [row for row in matrix["tags"] if row["feature"] == matrix["features"][0]["feature"]]
        self.assertEqual(len(self.browser.texts(".tag-row")), len(tags))

    def test_difference(self):
        path = page("diff", "diff", "examples/phone.dumpsys")
        diff = json.loads(qzcam("diff", "examples/phone.dumpsys", "--json"))
        self.looks_well(path, "", "difference")
        self.browser.open(path)
        differing = sum(len(diff[name]) for name in ("tags", "capabilities", "parameters")) + sum(len(each["entries"]) for each in diff["requests"])
        self.assertEqual(self.browser.texts(".difference > p"), [f"{differing} rows shown, {differing} differences in all"])
        self.browser.type("input[type=search]", "zslmode")
        self.browser.type("input[type=search]", "\b" * 7 + "qz-zsl-mode")
        self.assertEqual(self.browser.texts(".difference .list .side")[:2], ["int32", "byte"])
        self.browser.type("input[type=search]", "\b" * 11)
        self.browser.click(".toggle[data-name=alike]")
        alike = sum(len(rows) for rows in diff["alike"].values()) + sum(len(each["alike"]) for each in diff["requests"])
        self.assertEqual(self.browser.texts(".difference > p"), [f"{differing + alike} rows shown, {differing} differences in all"])

    def test_hostile_texts_stay_texts(self):
        hostile = "</script><script>document.title=1</script><img src=http://127.0.0.1/x onerror=document.title=2>\u2028\u202e&lt;"
        with open(f"{ROOT}/examples/device.dumpsys", encoding="utf-8") as file:
            dump = file.read().replace("(focusVcmValue)", f"({hostile.replace(' ', '/').encode('ascii', 'ignore').decode()})")
        for name, text in (("hostile.dumpsys", dump), ("hostile.qzs", f'open 0\nset "iso={hostile}"\nrequest\nexpect-entry iso "{hostile}"\n')):
            with open(f"{OUT}/{name}", "w", encoding="utf-8") as file:
                file.write(text)
        paths = [page("hostile", "run", f"{OUT}/hostile.qzs"), page("hostile-diff", "diff", f"{OUT}/hostile.dumpsys")]
        for path in paths:
            for view in ("timeline", "sensor", "device"):
                self.browser.open(path, view)
                self.assertTrue(self.browser.get("document.title").startswith("qzcam "))
                self.assertEqual(self.browser.get("document.querySelectorAll('#page script, #page img').length"), 0)
                self.assertEqual((self.browser.log(), len(self.browser.requests())), ([], 1))
        self.browser.open(paths[0], "timeline")
        self.assertTrue(any("</script><script>document.title=1" in text for text in self.browser.texts(".findings .row")))

    def test_20000_requests(self):
        with open(f"{OUT}/many.qzs", "w", encoding="utf-8") as file:
            file.write("open 0\n")
            for i in range(20000):
                file.write(f"set iso={[100, 200, 400, 800][i % 4]};zoom={i % 99};max-zoom=99;qz-exposure-compensation-value={i % 7}\nrequest\n"
                           f"result focusVcmValue={i % 1000} dualSensorAbnormal={i % 3}\n")
        path = page("many", "run", f"{OUT}/many.qzs")
        self.browser.open(path, "timeline")
        self.assertIn("20,000 requests", self.badges())
        # The time of the page's thread, so that other programs on the machine do not count.
        self.browser.cdp("Performance.enable", timeDomain="threadTicks")
        times = []
        for n in range(40):
            before = self.task_time()
            self.browser.run(FRAME, n, wait=True)
            times.append(1000 * (self.task_time() - before))
        print(f"20,000 requests: {statistics.median(times):.0f} ms a frame, {max(times):.0f} at most", file=sys.stderr)
        self.assertLessEqual(max(times), 50)
        self.assertLess(self.browser.get("document.querySelectorAll('#page *').length"), 3000)
        os.remove(path)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[1:]])
