// The catalogue of this browser: what the program's editor saved, or the school's file. It lies in localStorage because
// that answers at once, tells of other tabs, and writes whole or not at all.

const recordSize = 154; // bytes: a name of 100, a price of 4, a shop of 50
const priceAt = 100;
const mostProducts = 32767;

const schoolFile = "Recursos/productos.dat";
const key = `numbrela ${new URL(schoolFile, location.href).pathname}`; // schools may share a server, each with its folder
const bytesAtATime = 8192;

// What this browser holds now, or null.
export function storedCatalogue() {
    let text = null;
    try {
        text = localStorage.getItem(key);
    } catch { // forbidden
    }
    if (text === null) {
        return null;
    }
    const bytes = new Uint8Array(text.length);
    for (let at = 0; at < bytes.length; ++at) {
        bytes[at] = text.charCodeAt(at);
    }
    return bytes;
}

// Whether it could be kept, which the browser is then asked to do even when it needs room. A byte is a character: so the
// largest catalogue, 5,046,118 bytes, fits into the 5 Mi characters that browsers grant.
export function storeCatalogue(bytes) {
    let text = "";
    for (let start = 0; start < bytes.length; start += bytesAtATime) {
        text += String.fromCharCode(...bytes.subarray(start, start + bytesAtATime));
    }
    try {
        localStorage.setItem(key, text);
    } catch { // full or forbidden
        return false;
    }
    navigator.storage?.persist?.().catch(() => {}); // the answer changes nothing
    return true;
}

export function forgetCatalogue() {
    try {
        localStorage.removeItem(key);
    } catch { // forbidden, so nothing was kept
    }
}

// The file beside the page, or null if the school has none.
export async function schoolCatalogue() {
    const response = await fetch(schoolFile, { cache: "no-cache" });
    if (response.status === 404) {
        return null;
    }
    if (!isCatalogue(response)) { // of delivery.js
        throw new Error(`${schoolFile}: ${response.status}`);
    }
    return new Uint8Array(await response.arrayBuffer());
}

let unsaved = null; // what the editor found no room for, until the program reads a catalogue again

export function forgetUnsaved() {
    unsaved = null;
}

export function storeForProgram(bytes) {
    const isStored = storeCatalogue(bytes);
    unsaved = isStored ? null : bytes;
    return isStored;
}

// What somebody who saves into a file wants to have, or null.
export async function newestCatalogue() {
    return unsaved ?? storedCatalogue() ?? await schoolCatalogue();
}

const noCatalogue = "El archivo no es un catálogo de Numbrela.";

// Why a file of so many bytes can be no catalogue, or "".
export function faultOfSize(size) {
    const records = size / recordSize;
    if (records === 0 || !Number.isInteger(records)) {
        return noCatalogue;
    }
    return records > mostProducts ? "El catálogo tiene más de 32 767 productos." : "";
}

// Why these bytes are no catalogue, or "". The program itself takes any bytes; but a picture that was opened by mistake
// must not become one.
export function faultOf(bytes) {
    return allRecords(bytes, isRecord) ? "" : noCatalogue;
}

function allRecords(bytes, condition) {
    for (let start = 0; start < bytes.length; start += recordSize) {
        if (!condition(bytes.subarray(start, start + recordSize))) {
            return false;
        }
    }
    return true;
}

function isRecord(record) {
    const price = new DataView(record.buffer, record.byteOffset).getFloat32(priceAt, true);
    return !Number.isNaN(price) && isText(record.subarray(0, priceAt)) && isText(record.subarray(priceAt + 4));
}

// Text that was never set is zeros; tabs and line ends may have been pasted.
function isText(bytes) {
    return bytes.every(byte => byte >= 32 || "\0\t\n\r".includes(String.fromCharCode(byte)));
}
