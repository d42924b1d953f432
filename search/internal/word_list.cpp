#include "search/internal/word_list.h"

namespace NS_DIRECTORY {

namespace {

constexpr std::uint32_t SOURCE_MAX = (1U << 29) - 1;

}  // namespace

bool CWordList::AddText(const char* pText, std::uint32_t& nAt)
{
    nAt = m_texts.Count();
    return m_texts.Append(pText, static_cast<std::uint32_t>(std::strlen(pText)) + 1);
}

bool CWordList::BeginWord(SearchFieldType eField, std::uint32_t nSource, bool bSpelled)
{
    WordData word{};
    word.m_nForm = m_texts.Count();
    word.m_nSource = nSource & SOURCE_MAX;
    word.m_nSpelled = bSpelled ? 1 : 0;
    word.m_nField = static_cast<unsigned int>(eField) & 3U;
    return nSource <= SOURCE_MAX && m_words.Append(word);
}

bool CWordList::AddToWord(const char* pPiece, std::uint32_t nBytes)
{
    return m_texts.Append(pPiece, nBytes);
}

bool CWordList::EndWord()
{
    return m_texts.Append('\0');
}

void CWordList::ShareForm(std::uint32_t nAt)
{
    WordData& word = m_words.Begin()[m_words.Count() - 1];
    if (word.m_nForm != nAt && std::strcmp(Form(word), Text(nAt)) == 0) {
        m_texts.CutTo(word.m_nForm);
        word.m_nForm = nAt;
    }
}

void CWordList::GiveBackSpareRoom()
{
    m_texts.GiveBackSpareRoom();
    m_words.GiveBackSpareRoom();
}

}  // namespace NS_DIRECTORY
