// A person at a browser: presses keys, clicks and taps, looks at the windows of the program and reads what is copied.
// Whatever the browser reports as an error or a warning, as Qt's are, or asks of others than the school's server, is
// kept; a proof ends by asking that there was none. Of a service worker, Chromium alone tells that. NUMBRELA_PICTURES is
// where pictures go.
import assert from "node:assert/strict";
import { join } from "node:path";

import puppeteer from "puppeteer-core";

export const patience = 30_000; // milliseconds in which something expected happens
export const plainName = "escuela.example"; // of this machine, which browsers do not trust as much as its number

const names = {
    alt: "Alt", ctrl: "Control", shift: "Shift", Space: " ",
    Right: "ArrowRight", Left: "ArrowLeft", Up: "ArrowUp", Down: "ArrowDown",
};

// What is no error of the program: Qt asks where the program itself stands when assistive tools are switched on, and
// where a line of a list that is gone; Firefox refuses one of the two ways in which Qt copies; the proofs look at pixels.
const knownWarnings = [/^qt\.qpa\.accessibility: Unable to find window for /,
    /^clipboard error "NotAllowedError"/, /^Canvas2D: .*getImageData/];

export async function launch(kind, downloads) {
    const root = process.getuid() === 0;
    const common = { browser: kind === "firefox" ? "firefox" : "chrome", headless: true, protocolTimeout: 3 * patience };
    return kind === "firefox"
        ? puppeteer.launch({
            ...common,
            executablePath: "/usr/bin/firefox-esr",
            extraPrefsFirefox: {
                "browser.download.folderList": 2,
                "browser.download.dir": downloads,
                "browser.helperApps.neverAsk.saveToDisk": "application/octet-stream",
                "dom.events.testing.asyncClipboard": true, // the proof may read what was copied
                "intl.accept_languages": "es-ES",
                "network.dns.localDomains": plainName,
            },
        })
        : puppeteer.launch({
            ...common,
            executablePath: "/usr/bin/chromium",
            args: ["--lang=es-ES", `--host-resolver-rules=MAP ${plainName} 127.0.0.1`, ...(root ? ["--no-sandbox"] : [])],
        });
}

// What browsers say of a file that the server has not got, or of a script that it has not
export const notFound = /^Failed to load resource: .* 404 |^Error: Loading module from .* disallowed MIME type/;

// A person's own room in the browser: nothing that it keeps for others is seen there.
export class Person {
    constructor(browser, kind, downloads) {
        Object.assign(this, { browser, kind, downloads, errors: [] });
    }

    async enter(server) {
        this.server = server;
        this.context = await this.browser.createBrowserContext(
            this.kind === "firefox" ? {} : { downloadBehavior: { policy: "allow", downloadPath: this.downloads } });
        if (this.kind !== "firefox") {
            await this.context.overridePermissions(server.origin(),
                ["clipboard-read", "clipboard-write", "clipboard-sanitized-write"]);
            await this.#watchesWorkers();
        }
        return this;
    }

    // From before their first line: what a worker has asked for before is not told afterwards.
    async #watchesWorkers() {
        this.watcher = await this.browser.target().createCDPSession();
        this.watcher.on("Target.attachedToTarget", ({ sessionId }) =>
            this.#watches(this.watcher.connection().session(sessionId))
                .catch(() => {})); // a worker that has gone already has nothing to say
        await this.watcher.send("Target.setAutoAttach", { autoAttach: true, waitForDebuggerOnStart: true, flatten: true,
            filter: [{ type: "service_worker" }] });
    }

    async #watches(session) {
        session.on("Runtime.exceptionThrown", ({ exceptionDetails }) =>
            this.errors.push(`the worker: ${exceptionDetails.exception?.description ?? exceptionDetails.text}`));
        session.on("Runtime.consoleAPICalled", ({ args }) => this.errors.push(`the worker: ${args[0]?.value}`));
        session.on("Log.entryAdded", ({ entry }) => this.errors.push(`the worker: ${entry.text}`));
        session.on("Network.requestWillBeSent", ({ request }) => this.#hearsRequest(request.url));
        await Promise.all(["Runtime", "Log", "Network"].map(one => session.send(`${one}.enable`)));
        await session.send("Runtime.runIfWaitingForDebugger");
    }

    #hearsRequest(url) {
        const { origin, protocol } = new URL(url);
        if (protocol !== "data:" && ![this.server.origin(), this.server.origin(plainName)].includes(origin)) {
            this.errors.push(`something from elsewhere: ${url}`);
        }
    }

    async leave() {
        await this.context.close();
        await this.watcher?.detach();
        assert.deepEqual(this.errors, [], "the browser reported errors");
    }

    // Of the errors so far, those that were to be: so exact a pattern that it fits no other.
    forgives(pattern) {
        this.errors = this.errors.filter(error => !pattern.test(error));
    }

    // A new tab, which has not gone anywhere yet.
    async tab({ width = 1366, height = 768, ratio = 1, touch = false, before } = {}) {
        const page = await this.context.newPage();
        this.#listens(page);
        await page.setViewport({ width, height, deviceScaleFactor: ratio, hasTouch: touch });
        if (before) {
            await page.evaluateOnNewDocument(before);
        }
        return new Tab(page);
    }

    // To a page and to those that its links open: to the latter not from their first line on.
    #listens(page) {
        page.on("console", message => /^(error|warn)/.test(message.type())
            && !knownWarnings.some(known => known.test(message.text()))
            && !message.location().url?.endsWith("/favicon.ico") // which Chromium asks for past the worker
            && this.errors.push(message.text()));
        page.on("pageerror", error => this.errors.push(String(error)));
        page.on("request", request => this.#hearsRequest(request.url()));
        page.on("popup", opened => this.#listens(opened));
    }
}

export class Tab {
    constructor(page) {
        this.page = page;
        page.setDefaultTimeout(patience);
    }

    // ------------------------------------------------------------------------------------------------ where it goes

    async goes(url) {
        await this.page.goto(url, { waitUntil: "domcontentloaded" });
    }

    async starts(url) {
        await this.goes(url);
        await this.sees("NUMBRELA");
    }

    async reloads() {
        await this.page.reload({ waitUntil: "domcontentloaded" });
    }

    // By what is done in the page.
    async startsAnew(act) {
        await this.page.evaluate(() => { window.isOld = true; });
        await act();
        await this.until("a new start", () => !window.isOld);
        await this.sees("NUMBRELA");
    }

    // Until the page works without a network, too.
    async isKept() {
        await this.until("a service worker", async () => (await navigator.serviceWorker.getRegistration())?.active?.state
            === "activated");
    }

    // ------------------------------------------------------------------------------------------------ what it sees

    // Waits until the window with this title, and no other, is in front. One that has just been opened is not marked
    // as inactive either, but the one before it is not yet.
    async sees(title) {
        await this.until(`the window '${title}'`, wanted => {
            const shadow = document.querySelector("#qt-shadow-container")?.shadowRoot;
            const active = [...shadow?.querySelectorAll(".qt-window.has-title:not(.inactive)") ?? []]
                .filter(window => window.style.display === "block");
            return active.length === 1 && active[0].querySelector(".window-name").textContent === wanted;
        }, title);
    }

    // Waits until a box has such a text, as it is there for a screen reader; names are what that speaks.
    async has(name, pattern) {
        const box = await this.finds(name);
        await this.until(`${pattern} in '${name}'`, (one, source) => new RegExp(source).test(one.value), box, pattern.source);
        return box.evaluate(one => one.value);
    }

    // What is called so and can be seen. A menu's items stand in a window without a title.
    async finds(name) {
        await this.until(`'${name}'`, wanted => {
            const shadow = document.querySelector("#qt-shadow-container").shadowRoot;
            const all = [...shadow.querySelectorAll(".qt-window:not(.inactive) > * .qt-window-a11y-container > *")];
            window.found = all.find(one => [one.textContent, one.ariaLabel].includes(wanted)
                && one.closest(".qt-window").style.display === "block" && one.ariaHidden !== "true");
            return window.found;
        }, name);
        return this.page.evaluateHandle(() => window.found);
    }

    // Waits until the page itself says so, in the program's place and without a part that is cut off.
    async reads(text) {
        await this.until(`the notice '${text}'`, wanted => !document.getElementById("notice").hidden
            && document.getElementById("notice").getBoundingClientRect().bottom < innerHeight
            && document.getElementById("text").textContent === wanted, text);
    }

    async until(what, condition, ...values) {
        await this.page.waitForFunction(condition, { timeout: patience, polling: 50 }, ...values).catch(() => this.failsToFind(what));
    }

    // What could be seen then is in the picture web-when-it-failed.png.
    async failsToFind(what) {
        await this.draws("when-it-failed");
        throw new Error(`waited in vain for ${what}; there are ${await this.windows()}`);
    }

    async draws(name, selector = "html") {
        const clip = await this.page.$eval(selector, one => {
            const around = one === document.documentElement ? 0 : 40; // pixels
            const place = one.getBoundingClientRect();
            return { x: place.x - around, y: place.y - around, width: place.width + 2 * around,
                height: place.height + 2 * around };
        });
        await this.page.screenshot({ // of the page as large as it is: another size would move the windows
            clip, captureBeyondViewport: false, path: join(process.env.NUMBRELA_PICTURES, `web-${name}.png`),
        });
    }

    windows() {
        return this.page.evaluate(() => JSON.stringify([document.getElementById("text")?.textContent,
            ...[...document.querySelector("#qt-shadow-container")?.shadowRoot.querySelectorAll(".qt-window") ?? []]
                .map(one => `${one.className} ${one.style.display} ${one.querySelector(".window-name")?.textContent}`)]));
    }

    // ------------------------------------------------------------------------------------------------ what its hands do

    // press("alt+o", "Right", "2"), as a keyboard's keys are called.
    async press(...keys) {
        for (const key of keys) {
            const held = key.split("+");
            const last = held.pop();
            for (const one of held) {
                await this.page.keyboard.down(names[one]);
            }
            await this.page.keyboard.press(names[last] ?? last);
            for (const one of held.reverse()) {
                await this.page.keyboard.up(names[one]);
            }
        }
    }

    async write(text) {
        for (const character of text) {
            await this.page.keyboard.press(character);
        }
    }

    // With a finger, in the middle of what is called so.
    async taps(...many) {
        for (const name of many) {
            await this.page.touchscreen.tap(...await this.middleOf(name));
        }
    }

    async middleOf(name) {
        return (await this.finds(name)).evaluate(one => {
            const place = one.getBoundingClientRect();
            return [place.x + place.width / 2, place.y + place.height / 2].map(Math.round);
        });
    }

    async closesByTheFrame() {
        const [x, y] = await this.page.evaluate(() => {
            const frames = document.querySelector("#qt-shadow-container").shadowRoot
                .querySelectorAll(".qt-window.has-title:not(.inactive)");
            const place = [...frames].find(one => one.style.display === "block")
                .querySelector(".title-bar > .image-button:last-of-type").getBoundingClientRect();
            return [place.x + place.width / 2, place.y + place.height / 2];
        });
        await this.page.mouse.click(x, y);
    }

    // On a link or a button of the page around the program.
    async clicksOnPage(name) {
        await this.page.locator(`::-p-xpath(//button[text()="${name}"])`).click();
    }

    async writeFromTheRight(text) {
        await this.press("ctrl+a", "Backspace");
        await this.write([...text].reverse().join(""));
    }

    // What stands in the box that has the focus, when it matches: copied as a person would copy it. What others have
    // copied is forgotten before; from an empty box, though, Qt copies once more what it copied last.
    async copies(pattern = /./) {
        let text = "";
        await this.page.evaluate(() => navigator.clipboard.writeText(""));
        for (const end = Date.now() + patience; Date.now() < end;) {
            await this.press("ctrl+a", "ctrl+c");
            text = await this.page.evaluate(() => navigator.clipboard.readText().catch(error => `(${error})`));
            if (pattern.test(text)) {
                return text;
            }
        }
        return this.failsToFind(`a text that matches ${pattern} instead of '${text}'`);
    }
}

// Runs in the page: the addresses in it behind which there is nothing. Its pictures are there afterwards, too: Firefox tells
// of an error when the page is left before.
export async function brokenLinks() {
    await Promise.all([...document.images].map(one => one.decode()));
    const links = [...document.querySelectorAll("a, img, link")].map(one => one.href ?? one.src);
    const answers = await Promise.all(links.map(link => fetch(link).catch(error => error)));
    return links.filter((_, index) => !answers[index].ok);
}
