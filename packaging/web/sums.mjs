// Writes into the service worker of a folder what the files are that it keeps. A name that ends with a slash is a folder:
// each file in it is listed, but for packed ones, and its index.html under the folder's name. Fails when a file beside the
// worker is not in its list, but for what a server reads: without a network, the program would lack it.
// Usage: node sums.mjs FOLDER
import { createHash } from "node:crypto";
import { readFile, readdir, writeFile } from "node:fs/promises";
import { join } from "node:path";
import { pathToFileURL } from "node:url";

const isUnpackedFile = name => /\.(?!br$|gz$)\w+$/.test(name);

export async function writeSums(folder) {
    const file = join(folder, "worker.js");
    const worker = await readFile(file, "utf8");
    const [list] = worker.match(/(?<=^const sums = \{\n)[^}]*/m);
    const names = new Set([...list.matchAll(/"(.*)": /g)].map(([, name]) => name));
    for (const whole of [...names].filter(name => name.endsWith("/"))) {
        const files = await readdir(join(folder, whole), { recursive: true });
        files.filter(isUnpackedFile).sort().forEach(name => names.add(whole + name.replace(/^index\.html$/, "")));
    }
    const missing = (await readdir(folder)).filter(isUnpackedFile)
        .filter(name => !["worker.js", "web.config"].includes(name) && !names.has(name.replace(/^index\.html$/, "")));
    if (missing.length > 0) {
        throw new Error(`worker.js does not keep ${missing.join(", ")}`);
    }
    const lines = await Promise.all([...names].map(async name => {
        const content = await readFile(join(folder, name.replace(/^$|\/$/, "$&index.html")));
        return `    "${name}": "${createHash("sha256").update(content).digest("hex")}",\n`;
    }));
    await writeFile(file, worker.replace(list, lines.join("")));
}

if (import.meta.url === pathToFileURL(process.argv[1]).href) {
    await writeSums(process.argv[2]);
}
