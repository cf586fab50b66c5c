"""Headless Chromium with real keys, driven over a pipe with the DevTools protocol."""
import base64
import json
import os
import select
import shutil
import subprocess
import time

KEYS = {"Tab": 9, "Enter": 13, "Escape": 27, " ": 32, "ArrowLeft": 37, "ArrowUp": 38, "ArrowRight": 39, "ArrowDown": 40}
PATIENCE = 100  # seconds for one answer, also on a machine that does much else


def find():
    """The path of Chromium, or None."""
    return next(filter(None, map(shutil.which, ("chromium", "chromium-browser", "google-chrome"))), None)


class Chromium:
    """One page of a browser of its own, which ends with it (a context manager).

    `profile` is a folder to be made, for everything that the browser writes.

    `problems` has what the console got: errors, warnings, exceptions and requests that failed.
    """

    def __init__(self, profile):
        to_browser, self._out = os.pipe()
        self._in, from_browser = os.pipe()

        def in_the_child():
            # The protocol wants these two numbers, which our own ends may have.
            spares = os.dup(to_browser), os.dup(from_browser)
            for number, spare in enumerate(spares, 3):
                os.dup2(spare, number)

        self._process = subprocess.Popen(
            [find(), "--headless", "--no-sandbox", "--disable-gpu", "--remote-debugging-pipe",
             "--no-first-run", f"--user-data-dir={profile}", "about:blank"],
            preexec_fn=in_the_child, close_fds=False, env={**os.environ, "HOME": str(profile)},
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(to_browser)
        os.close(from_browser)
        self._bytes, self._number, self._session = b"", 0, None
        self.problems, self._loaded = [], set()
        target = self._do("Target.createTarget", url="about:blank")["targetId"]
        self._session = self._do("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        for domain in ("Page", "Runtime", "Log", "Network"):
            self._do(f"{domain}.enable")
        self._do("Page.setLifecycleEventsEnabled", enabled=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._process.terminate()
        self._process.wait()
        os.close(self._in)
        os.close(self._out)

    def _message(self):
        until = time.monotonic() + PATIENCE
        while b"\0" not in self._bytes:
            if not select.select([self._in], [], [], until - time.monotonic())[0]:
                raise TimeoutError("Chromium does not answer")
            chunk = os.read(self._in, 1 << 16)
            if not chunk:
                raise EOFError("Chromium has ended")
            self._bytes += chunk
        text, self._bytes = self._bytes.split(b"\0", 1)
        message = json.loads(text)
        method, values = message.get("method"), message.get("params")
        if method == "Runtime.exceptionThrown":
            self.problems.append(json.dumps(values["exceptionDetails"]))
        elif method == "Runtime.consoleAPICalled" and values["type"] in ("error", "warning", "assert"):
            self.problems.append(json.dumps(values["args"]))
        elif method == "Log.entryAdded" and values["entry"]["level"] in ("error", "warning"):
            self.problems.append(values["entry"]["text"])
        elif method == "Page.lifecycleEvent" and values["name"] == "load":
            self._loaded.add(values["loaderId"])
        elif method == "Network.loadingFailed" and not values.get("canceled"):
            self.problems.append(values["errorText"])
        return message

    def _do(self, method, **values):
        self._number += 1
        request = {"id": self._number, "method": method, "params": values}
        if self._session:
            request["sessionId"] = self._session
        os.write(self._out, json.dumps(request).encode() + b"\0")
        while (message := self._message()).get("id") != self._number:
            pass
        if "error" in message:
            raise RuntimeError(f"{method}: {message['error']}")
        return message["result"]

    def open(self, page, width, height=900, colours="light", contrast="no-preference", forced="none"):
        """Opens a file in a window of that size, on a system with those colours."""
        self._do("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)
        self._do("Emulation.setEmulatedMedia", features=[
            {"name": "prefers-color-scheme", "value": colours}, {"name": "prefers-contrast", "value": contrast},
            {"name": "forced-colors", "value": forced}])
        loader = self._do("Page.navigate", url=page.as_uri())["loaderId"]
        while loader not in self._loaded:
            self._message()

    def ask(self, expression):
        """The value of a JavaScript expression, or of its promise."""
        answer = self._do("Runtime.evaluate", expression=expression, awaitPromise=True, returnByValue=True)
        if "exceptionDetails" in answer:
            raise RuntimeError(json.dumps(answer["exceptionDetails"]))
        return answer["result"].get("value")

    def press(self, key, shift=False):
        """Presses and releases a key: one of KEYS, or a character."""
        about = {"key": key, "modifiers": 8 if shift else 0}
        if key in KEYS:
            about |= {"code": "Space" if key == " " else key, "windowsVirtualKeyCode": KEYS[key]}
        text = {"Enter": "\r"}.get(key, key if len(key) == 1 else None)
        self._do("Input.dispatchKeyEvent", type="keyDown", **about, **({"text": text} if text else {}))
        self._do("Input.dispatchKeyEvent", type="keyUp", **about)

    def type(self, text):
        for character in text:
            self.press(character)

    def picture(self, file, whole=False):
        """Writes what the window shows, or the whole page, as a PNG file."""
        data = self._do("Page.captureScreenshot", format="png", captureBeyondViewport=whole)["data"]
        file.write_bytes(base64.b64decode(data))
