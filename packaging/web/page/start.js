// Loads the program and starts it, and says how far that is and how it ended. From other scripts of the page come
// hindrance, unfitText and incompleteText (check.js), deliverProgram (delivery.js), qtLoad (qtloader.js) and
// numbrela_entry (numbrela.js).
import { byId, offerCatalogue } from "./links.js?@VERSION@";
import { forgetUnsaved, schoolCatalogue, storeForProgram, storedCatalogue } from "./catalogue.js?@VERSION@";

const version = "?@VERSION@";
const folder = new URL(".", import.meta.url).href;
let news = []; // that are about to be announced
let loaded = false;
let running = false;
let ended = false;

async function start() {
    byId("again").addEventListener("click", startAgain);
    offerCatalogue();
    say("Cargando Numbrela…");
    byId("loading").hidden = false;
    try {
        const scripts = new Promise(done => addEventListener("DOMContentLoaded", done, { once: true }));
        const [module, catalogue] = await Promise.all([compiledProgram(), fallbackCatalogue(), scripts]);
        await run(module, catalogue);
    } catch (error) {
        end(error instanceof WebAssembly.CompileError ? unfitText : incompleteText, error);
        return;
    }
    byId("notice").hidden = running;
    await twoFrames(); // the first picture comes first
    if (running) {
        switchOnAccessibility();
        serviceWorkers()?.register("worker.js").catch(error => console.info(error)); // works, but not offline
    }
}

// What came while somebody was copying may be in the browser's cache as something that will do for long.
async function startAgain() {
    if (!loaded) {
        const came = performance.getEntriesByType("resource").map(entry => entry.name);
        await Promise.allSettled(came.map(address => fetch(address, { cache: "reload" })));
    }
    location.reload();
}

// Undefined over plain http, and where the person has forbidden to store anything: some browsers throw then.
function serviceWorkers() {
    try {
        return navigator.serviceWorker;
    } catch {
        return undefined;
    }
}

// What the browser has stored stands for it, but another tab may give that up, so that this one falls back on it.
function fallbackCatalogue() {
    return schoolCatalogue().catch(error => {
        if (storedCatalogue() === null) {
            throw error;
        }
        return null;
    });
}

async function compiledProgram() {
    const [sizes, response] = await Promise.all([
        fetch("sizes.json" + version).then(answer => answer.json()),
        serviceWorkers()?.controller ? fetch("numbrela.wasm" + version) : deliverProgram(version),
    ]);
    if (!response.ok) {
        throw new Error(`${response.url}: ${response.status}`);
    }
    const total = sizes["numbrela.wasm"];
    let received = 0; // bytes, unpacked
    const counting = new TransformStream({
        transform(chunk, output) {
            received += chunk.length;
            showProgress(Math.min(100, Math.floor(100 * received / total)));
            output.enqueue(chunk);
        },
        flush() { // or else what has not all been copied to the server yet would look like what no browser can read
            if (received !== total) {
                throw new Error(`numbrela.wasm: ${received} / ${total}`);
            }
        },
    });
    // A response of our own, so that it does not matter what type the server takes the file for.
    return WebAssembly.compileStreaming(
        new Response(response.body.pipeThrough(counting), { headers: { "Content-Type": "application/wasm" } }));
}

async function run(module, catalogue) {
    running = true;
    await qtLoad({
        qt: {
            entryFunction: numbrela_entry,
            containerElements: [byId("program")],
            module: Promise.resolve(module),
            localFonts: { familiesCollection: "NoFontFamilies" }, // it brings its own, so it looks the same everywhere
            onExit: ({ code, text }) => code === 0
                ? end("Numbrela ha terminado.")
                : end("Numbrela se ha cerrado por un error.", text),
        },
        numbrela: { storedCatalogue, forgetUnsaved, storeCatalogue: storeForProgram, announce, spanishOrder },
        preRun: [({ FS }) => {
            loaded = true;
            FS.mkdir("/Recursos");
            if (catalogue !== null) {
                FS.writeFile("/Recursos/productos.dat", catalogue);
            }
        }],
    });
}

// The toolkit waits to be told by a button of its own, which is in English and would have to be found first.
function switchOnAccessibility() {
    toolkit()?.querySelector("button.hidden-visually-read-by-screen-reader")?.click();
}

// What the program says to a pupil who does not see. The same words twice are heard twice.
function announce(text) {
    if (news.push(text) > 1) {
        return;
    }
    byId("news").textContent = "";
    requestAnimationFrame(() => {
        byId("news").textContent = news.join(" ");
        news = [];
    });
}

// The places of the texts in the order of a Spanish dictionary, for which the program carries no tables of its own.
function spanishOrder(texts) {
    const spanish = new Intl.Collator("es", { sensitivity: "accent" }); // which ignores case
    return texts.map((_, place) => place).sort((one, other) => spanish.compare(texts[one], texts[other]));
}

// Where the toolkit has its windows
function toolkit() {
    return byId("program").querySelector("#qt-shadow-container")?.shadowRoot;
}

// The element that has the program's keys
function typedInto() {
    return document.querySelector("body > input");
}

function showProgress(percent) {
    byId("progress").value = percent;
    byId("percent").textContent = `${percent} %`;
}

function twoFrames() {
    return new Promise(done => requestAnimationFrame(() => requestAnimationFrame(done)));
}

function say(text) {
    byId("text").textContent = text;
}

// What is said first of an end stays: an error on the way down may follow.
function end(text, detail = "") {
    if (ended) {
        return;
    }
    ended = true;
    running = false;
    byId("program").remove();
    typedInto()?.remove();
    byId("loading").hidden = true;
    byId("notice").hidden = false;
    byId("again").hidden = false;
    byId("detail").textContent = detail;
    say(text);
    byId("notice").focus(); // and not the button, which the key that ended the program would press
}

// An error of the program that nobody catches is its end, but for the ways in which it leaves its own call stack.
function handleUncaught(event, error) {
    if (error === "unwind" || error?.name === "ExitStatus") {
        event.preventDefault();
    } else if (running && error && !(error instanceof DOMException) && isOwn(error)) {
        end("Numbrela se ha cerrado por un error.", error);
    }
}

// Whether the program or a script of the page has failed, and none that an extension or a school's filter has put here.
// Where it was made is the first place of its stack, after the message; who has called that, such as the page, follows.
// Not all of the program's errors tell where they come from: what C++ throws is a number, and Firefox's want of memory
// this text.
function isOwn(error) {
    const [place] = /.*(:\/\/|:wasm-function\[).*/.exec(String(error.stack).replace(String(error), "")) ?? [""];
    return error instanceof WebAssembly.RuntimeError || typeof error === "number" || error === "out of memory"
        || place.includes(":wasm-function[") || /^\w+\.js/.test(place.split(folder)[1]);
}
addEventListener("error", event => handleUncaught(event, event.error));
addEventListener("unhandledrejection", event => handleUncaught(event, event.reason));

// Alt+F4, which closes a window elsewhere, closes the whole browser. Here F4 does it, by the button of the frame: one
// window has no other way out. An open menu has the keys first.
addEventListener("keydown", event => {
    const { key, altKey, ctrlKey, shiftKey, metaKey } = event;
    if (!running || byId("question").open || key !== "F4" || altKey || ctrlKey || shiftKey || metaKey) {
        return;
    }
    event.preventDefault();
    event.stopPropagation();
    if (!event.repeat && !activeWindows(":not(.has-title)").some(isMenu)) {
        activeWindows(".has-title")[0]?.querySelector(".title-bar > .image-button:last-of-type")?.click();
    }
}, { capture: true });

// Neither a menu nor a tip has a title, but screen readers find nothing in a tip.
const isMenu = one => one.querySelector(".qt-window-a11y-container > *") !== null;

function activeWindows(kind) {
    return [...toolkit()?.querySelectorAll(`.qt-window:not(.inactive)${kind}`) ?? []]
        .filter(one => one.style.display === "block");
}

// Keys that the program has, or may have in another window, and those by which the page would be left, loaded anew or
// covered: what the browser would do with them would end an exercise or stand before it.
addEventListener("keydown", event => {
    const { key, altKey } = event;
    const ctrl = event.ctrlKey || event.metaKey;
    const taken = ctrl ? /^(F5|[ropsu])$/i.test(key)
        : /^F([1235]|7|10)$/.test(key) || (altKey && /^(\p{L}|Home|ArrowLeft|ArrowRight)$/u.test(key));
    if (running && taken && !event.getModifierState("AltGraph")) {
        event.preventDefault();
    }
}, { capture: true });
addEventListener("keyup", event => {
    if (running && event.key === "Alt") {
        event.preventDefault(); // or else Firefox turns to its own menu
    }
}, { capture: true });

// A key may go down in the program and be let go on a link or in a question, which keeps the focus.
addEventListener("keyup", event => {
    if (event.target.closest("nav, dialog")) {
        typedInto()?.dispatchEvent(new KeyboardEvent("keyup", event));
        event.target.focus();
    }
});

// A click beside the windows takes no keys from them.
byId("program").addEventListener("pointerdown", event => {
    const isInWindow = event.composedPath().some(one => one instanceof Element && one.classList.contains("qt-window"));
    if (!isInWindow) {
        event.preventDefault();
    }
});

if (hindrance === "") {
    start();
}
