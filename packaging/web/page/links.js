// The links below the program: three by which a teacher carries the catalogue from browser to browser, and two to pages
// of their own.
import {
    faultOf, faultOfSize, forgetCatalogue, newestCatalogue, storeCatalogue, storedCatalogue,
} from "./catalogue.js?@VERSION@";

export const byId = id => document.getElementById(id);
const startsAnew = "Numbrela empieza de nuevo, y se pierde lo que no esté guardado.";
let inProgram = null; // what had the focus there last

export function offerCatalogue() {
    const links = byId("links");
    links.hidden = false;
    byId("save").addEventListener("click", save);
    byId("open").addEventListener("click", () => byId("file").click());
    byId("file").addEventListener("change", event => open(event.target));
    byId("reset").addEventListener("click", reset);
    byId("yes").addEventListener("click", () => byId("question").close("yes"));
    byId("no").addEventListener("click", () => byId("question").close(""));

    links.addEventListener("pointerdown", event => event.preventDefault()); // the program keeps the keys
    addEventListener("focusin", ({ target }) => {
        if (!target.closest("nav, dialog, section")) {
            inProgram = target;
        }
    });
    // The program has the Tab key, so another one leads to the links and back.
    addEventListener("keydown", event => {
        if (event.key === "F6" && !byId("question").open) {
            event.preventDefault();
            event.stopPropagation();
            (links.contains(document.activeElement) ? inProgram : byId("save"))?.focus();
        }
    }, { capture: true });
}

async function save() {
    const bytes = await newestCatalogue().catch(() => null);
    if (bytes === null) {
        tell("No hay ningún catálogo que guardar, o no hay conexión con el servidor.");
        return;
    }
    const link = document.createElement("a");
    link.href = URL.createObjectURL(new Blob([bytes]));
    link.download = "productos.dat";
    link.click();
    URL.revokeObjectURL(link.href);
}

async function open(chooser) {
    const file = chooser.files[0];
    chooser.value = ""; // so that the same file can be chosen again
    const [bytes, fault] = await contentOf(file);
    if (fault) {
        tell(fault);
        return;
    }
    const loss = storedCatalogue() ? "Se pone en el lugar del guardado en este navegador. " : "";
    if (!await ask(`¿Abrir el catálogo «${file.name}»? ${loss}${startsAnew}`)) {
        return;
    }
    if (storeCatalogue(bytes)) {
        location.reload();
    } else {
        tell("El catálogo no se ha podido guardar: este navegador no lo permite o no tiene sitio.");
    }
}

// The bytes of a catalogue and "", or why the file is none.
async function contentOf(file) {
    const fault = faultOfSize(file.size); // before the memory is filled with a film
    if (fault) {
        return [null, fault];
    }
    try {
        const bytes = new Uint8Array(await file.arrayBuffer());
        return [bytes, faultOf(bytes)];
    } catch {
        return [null, "El archivo no se puede leer."];
    }
}

async function reset() {
    if (!storedCatalogue()) {
        tell("Ya se usa el catálogo de la escuela: en este navegador no hay otro guardado.");
    } else if (await ask("¿Volver al catálogo de la escuela? Se borra el guardado en este navegador. " + startsAnew)) {
        forgetCatalogue();
        location.reload();
    }
}

const ask = text => answer(text, true);
const tell = text => answer(text, false);

function answer(text, canCancel) {
    const question = byId("question");
    if (question.open) { // what it asks stays until somebody answers that
        return false;
    }
    byId("no").hidden = !canCancel;
    byId("asked").textContent = text;
    question.returnValue = "";
    question.showModal();
    return new Promise(done =>
        question.addEventListener("close", () => done(question.returnValue === "yes"), { once: true }));
}
