// The search of the user guide. guide_index.js has what is searched: for each part of a page the
// page with the part's name, the title of the page, the heading of the part, its text. There is no
// server: both are read like the page itself.
"use strict";

const mostFound = 30;
const snippetLength = 120;

// Letters as a reader types them: small, without accents.
function plain(text) {
    return text.normalize("NFD").replace(/[\u0300-\u036f]/g, "").toLowerCase();
}

const parts = guideIndex.map(([place, page, heading, text]) =>
    ({place, page, heading, text, plainHead: plain(page + " " + heading), plainText: plain(text)}));

function occurrences(text, word) {
    return text.split(word).length - 1;
}

// A part is found when it has all words; those in its headings count more.
function scoreOf(part, words) {
    let score = 0;
    for (const word of words) {
        const inHead = occurrences(part.plainHead, word);
        const inText = occurrences(part.plainText, word);
        if (inHead + inText === 0) return 0;
        score += 20 * Math.min(inHead, 2) + Math.min(inText, 5);
    }
    return score;
}

function find(query) {
    const words = plain(query).split(/\s+/).filter((word) => word !== "");
    if (words.length === 0) return [];
    return parts.map((part) => ({part, words, score: scoreOf(part, words)}))
        .filter((found) => found.score > 0)
        .sort((a, b) => b.score - a.score);
}

// The text around the first word that is in it.
function snippetOf({part, words}) {
    const places = words.map((word) => part.plainText.indexOf(word)).filter((at) => at >= 0);
    const at = places.length > 0 ? Math.min(...places) : 0;
    const begin = at < snippetLength / 2 ? 0 : part.text.indexOf(" ", at - snippetLength / 2) + 1;
    const end = begin + snippetLength;
    return (begin > 0 ? "... " : "") + part.text.slice(begin, end).trim() +
        (end < part.text.length ? " ..." : "");
}

function itemOf(found) {
    const {part} = found;
    const item = document.createElement("li");
    const link = document.createElement("a");
    link.href = part.place;
    link.textContent = part.heading === part.page ? part.page : part.page + ": " + part.heading;
    const text = document.createElement("small");
    text.textContent = snippetOf(found);
    link.append(text);
    item.append(link);
    return item;
}

function show(query) {
    const found = find(query);
    const list = document.getElementById("found");
    list.replaceChildren(...found.slice(0, mostFound).map(itemOf));
    const isSearching = query.trim() !== "";
    list.hidden = !isSearching;
    document.getElementById("chapters").hidden = isSearching;
    const count = document.getElementById("count");
    count.hidden = !isSearching;
    count.textContent = found.length === 0 ? "Nothing found. Try fewer words, or a part of a word." :
        found.length > mostFound ? "The best " + mostFound + " of " + found.length + " places" :
        found.length === 1 ? "1 place" : found.length + " places";
}

function start() {
    const query = document.getElementById("query");
    document.getElementById("search").hidden = false;
    query.addEventListener("input", () => show(query.value));
    query.addEventListener("keydown", (event) => {
        const first = document.querySelector("#found a");
        if (event.key === "Enter" && first) first.click();
        if (event.key === "Escape") {
            query.value = "";
            show("");
        }
    });
    document.addEventListener("keydown", (event) => {
        if (event.key === "/" && event.target !== query) {
            event.preventDefault();
            query.focus();
        }
    });
    // What was searched is still there when the reader comes back to a page.
    show(query.value);
}

start();
