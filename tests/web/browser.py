# SPDX-License-Identifier: Apache-2.0
"""A headless browser, driven by WebDriver: plain HTTP and JSON."""
import atexit
import base64
import contextlib
import json
import os
import shutil
import signal
import subprocess
import tempfile
import time
import urllib.request

ELEMENT = "element-6066-11e4-a52e-4f735466cecf"
KEYS = {"Left": "\ue012", "Up": "\ue013", "Right": "\ue014", "Down": "\ue015", "Tab": "\ue004", "End": "\ue010",
        "Home": "\ue011", "Escape": "\ue00c", "PageDown": "\ue00f"}


class Browser:
    def __init__(self):
        driver = shutil.which("chromedriver")
        binary = shutil.which("chromium-headless-shell")
        if not driver or not binary:
            raise SystemExit("chromedriver and chromium-headless-shell are missing: .ci/install web")
        self.folder = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        self.process = subprocess.Popen([driver, "--port=0"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                                        env={**os.environ, "TMPDIR": self.folder.name}, start_new_session=True)
        atexit.register(self.stop)
        port = None
        for line in self.process.stdout:
            if "started successfully on port" in line:
                port = int(line.rstrip(".\n ").split()[-1])
                break
        if port is None:
            raise SystemExit("chromedriver does not start")
        self.base = f"http://127.0.0.1:{port}"
        options = {"binary": binary, "args": ["--no-sandbox", "--disable-gpu", "--force-device-scale-factor=1", "--lang=en"]}
        capabilities = {"browserName": "chrome", "goog:chromeOptions": options,
                        "goog:loggingPrefs": {"browser": "ALL", "performance": "ALL"}}
        for attempt in range(3):
            try:
                answer = self.call("POST", "/session", {"capabilities": {"alwaysMatch": capabilities}})
                break
            except OSError:
                if attempt == 2:
                    raise
                time.sleep(1)
        self.base += f"/session/{answer['sessionId']}"

    def call(self, method, path, body=None):
        data = json.dumps(body).encode() if body is not None else None
        request = urllib.request.Request(self.base + path, data, {"Content-Type": "application/json"}, method=method)
        try:
            with urllib.request.urlopen(request, timeout=120) as answer:
                return json.load(answer)["value"]
        except urllib.error.HTTPError as error:
            raise AssertionError(json.load(error)["value"]["message"].splitlines()[0]) from None

    def close(self):
        try:
            self.call("DELETE", "")
        finally:
            self.stop()

    def stop(self):
        """Ends the driver and every browser that it has started, also one whose session was never answered."""
        if self.process.poll() is not None:
            return
        os.killpg(self.process.pid, signal.SIGTERM)
        self.process.wait()
        with contextlib.suppress(ProcessLookupError):
            for _ in range(50):
                os.killpg(self.process.pid, 0)
                time.sleep(0.1)
        self.folder.cleanup()

    def cdp(self, command, **params):
        return self.call("POST", "/goog/cdp/execute", {"cmd": command, "params": params})

    def open(self, path, view="", width=1280, height=900, scheme="light"):
        self.cdp("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)
        self.cdp("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": scheme}])
        self.call("POST", "/url", {"url": "about:blank"})
        self.log()
        self.requests()
        self.call("POST", "/url", {"url": f"file://{path}#{view}"})
        self.settle()

    def settle(self):
        """Waits until the browser has drawn a change."""
        self.run("const done = arguments[0]; requestAnimationFrame(() => requestAnimationFrame(() => requestAnimationFrame(done)));", wait=True)

    def run(self, script, *arguments, wait=False):
        return self.call("POST", "/execute/async" if wait else "/execute/sync", {"script": script, "args": list(arguments)})

    def get(self, expression):
        return self.run(f"return {expression};")

    def texts(self, selector):
        return self.run("return [...document.querySelectorAll(arguments[0])].map((e) => e.textContent);", selector)

    def element(self, selector):
        return self.call("POST", "/element", {"using": "css selector", "value": selector})[ELEMENT]

    def click(self, selector):
        self.call("POST", f"/element/{self.element(selector)}/click", {})
        self.settle()

    def type(self, selector, text):
        self.call("POST", f"/element/{self.element(selector)}/value", {"text": text})
        self.settle()

    def keys(self, *names):
        actions = [step for name in names for step in ({"type": "keyDown", "value": KEYS.get(name, name)}, {"type": "keyUp", "value": KEYS.get(name, name)})]
        self.call("POST", "/actions", {"actions": [{"type": "key", "id": "keys", "actions": actions}]})
        self.settle()

    def point(self, x, y, to=None):
        """Clicks at a place of the window, or drags from there."""
        steps = [{"type": "pointerMove", "x": int(x), "y": int(y), "duration": 0}, {"type": "pointerDown", "button": 0}]
        if to:
            steps.append({"type": "pointerMove", "x": int(to[0]), "y": int(to[1]), "duration": 60})
        steps.append({"type": "pointerUp", "button": 0})
        self.call("POST", "/actions", {"actions": [{"type": "pointer", "id": "mouse", "actions": steps}]})
        self.settle()

    def log(self):
        return [entry["message"] for entry in self.call("POST", "/se/log", {"type": "browser"})]

    def requests(self):
        """Returns the addresses that were requested since the last call."""
        messages = [json.loads(entry["message"])["message"] for entry in self.call("POST", "/se/log", {"type": "performance"})]
        return [message["params"]["request"]["url"] for message in messages if message["method"] == "Network.requestWillBeSent"]

    def picture(self, path):
        with open(path, "wb") as file:
            file.write(base64.b64decode(self.call("GET", "/screenshot")))
